#pragma once
// The reading side of the pipe: records from the reader of old databases, whoever brings their bytes.

#include "platform/dao/jet_file.h"

#include <cstddef>

namespace mrd::dao {

/// Where the bytes come from.
class JetBytes {
public:
  virtual ~JetBytes() = default;
  /// At least one and at most `count` bytes. Throws base::Error where no more come.
  virtual std::size_t read(char* target, std::size_t count) = 0;
};

/// Hands the records to `sink` up to the last one. Throws base::Error (NotADatabase) for a failure that the reader tells, and for
/// bytes that are no records; nothing of what came before counts then.
void readJetRecords(JetBytes& bytes, JetSink& sink);

} // namespace mrd::dao
