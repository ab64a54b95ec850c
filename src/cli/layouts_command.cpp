#include "base/format.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/session.h"
#include "mainform/project_frame.h"

#include <CLI/CLI.hpp>

namespace mrd::cli {

void addLayouts(CLI::App& app, Session& session)
{
  app.add_subcommand("layouts", "The entries of the layout box: index TAB text")->callback([&session] {
    session.run([&] {
      mainform::ProjectFrame mainform(session.program());
      mainform.ladebenutzerlayouts();
      const auto& entries = mainform.fields().ComboGrundlayout.entries;
      std::vector<std::string> elements;
      for (std::size_t i = 0; i < entries.size(); ++i)
        if (session.json)
          elements.push_back(jsonText(entries[i]));
        else
          printLine(base::format("{}\t{}", i, entries[i]));
      if (session.json)
        printLine(jsonArray(elements));
      return ExitStatus::Done;
    });
  });
}

} // namespace mrd::cli
