#pragma once
// What the outside world did wrong, with the platform's number and description: the form in which users get to read it.

#include <stdexcept>
#include <string>

namespace mrd::base {

/// Error numbers that the system tells apart or shows.
enum class ErrorNumber : int {
  InvalidCall = 5,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  FileNotFound = 53,
  DiskFull = 61,
  AccessDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  ObjectNotSet = 91,
  InvalidUseOfNull = 94,
  InvalidPicture = 481,
  ControlNotFound = 730,
  NoCurrentRecord = 3021,
  NotADatabase = 3343,
  EngineError = 3146,
  DatabaseLocked = 3260,
  SyntaxError = 3075,
  ItemNotFound = 3265,
  Cancelled = 32755,
};

class Error : public std::runtime_error {
public:
  Error(ErrorNumber number, const std::string& description) : std::runtime_error(description), number_(number) {}

  int number() const { return static_cast<int>(number_); }
  ErrorNumber kind() const { return number_; }
  std::string description() const { return what(); }

private:
  ErrorNumber number_;
};

} // namespace mrd::base
