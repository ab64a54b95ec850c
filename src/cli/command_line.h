#pragma once
// The command line of `mrd` as a whole. The manual page and the completions of shells are made from it too.

namespace CLI {
class App;
}

namespace mrd::cli {

class Session;

/// Adds the options of every command and the commands to the parser.
void addCommandLine(CLI::App& app, Session& session);

} // namespace mrd::cli
