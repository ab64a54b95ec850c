#pragma once
// Databases of earlier versions (Jet 3 and 4): recognising one, and reading all that its tables hold. A program of its own does
// the reading, under limits of memory and time, since a damaged file can bring the library that knows the format to a fall or a
// standstill.

#include "platform/dao/value.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {

struct JetColumn {
  std::string name;
  /// As a statement writes it: TEXT, MEMO, LONG, DOUBLE, BIT, DATE or COUNTER.
  std::string type;
};

struct JetTable {
  std::string name;
  std::vector<JetColumn> columns;
};

/// Takes what is read, in the order of the file.
class JetSink {
public:
  virtual ~JetSink() = default;
  virtual void table(JetTable table) = 0;
  /// A row of the last table. Dates are texts in the form of database columns, yes/no is 1 and 0.
  virtual void row(std::vector<Value> values) = 0;
  /// Something that could not be read, in words for the user.
  virtual void leftOut(std::string what) = 0;
};

struct JetReading {
  /// The program that reads.
  std::filesystem::path program;
  /// A large file gets a second more for each megabyte.
  std::chrono::seconds wallTime{120};
};

/// Whether the file begins as a Jet database does; false for one that cannot be read.
bool isJetFile(std::string_view path);

/// The reading program of this installation.
JetReading installedJetReading();

/// Reads all tables that are not the engine's own. Throws base::Error (NotADatabase) with words for the user.
void readJetFile(std::string_view path, const JetReading& reading, JetSink& sink);

} // namespace mrd::dao
