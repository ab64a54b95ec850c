#pragma once
// The commands of `mrd`, each in a file of its own. Each function adds its command with its options to the parser.

#include <span>
#include <vector>

namespace CLI {
class App;
}

namespace mrd::cli {

class Session;

void addNew(CLI::App& app, Session& session);
void addPages(CLI::App& app, Session& session);
void addPage(CLI::App& app, Session& session);
void addSettings(CLI::App& app, Session& session);
void addLayouts(CLI::App& app, Session& session);
void addPictures(CLI::App& app, Session& session);
void addGenerate(CLI::App& app, Session& session);
void addPublish(CLI::App& app, Session& session);
void addImport(CLI::App& app, Session& session);
void addRestore(CLI::App& app, Session& session);
void addPath(CLI::App& app, Session& session);
void addIni(CLI::App& app, Session& session);

/// The arguments, changed so that the text of a path command is no option even where it looks like one.
std::vector<const char*> withTextAsItIs(std::span<char* const> arguments);

} // namespace mrd::cli
