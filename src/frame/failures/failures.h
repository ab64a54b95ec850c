#pragma once
// The two fixed forms in which a procedure that fails tells the user, and goes on at its exit.

#include "base/errors.h"
#include "frame/messages/messages.h"
#include "platform/ui/ui.h"

#include <string_view>
#include <utility>

namespace mrd::failures {

/// Shows message 1 with "<description> (<number>) in Modul <name>".
void showStandardFailure(messages::Language& language, const base::Error& error, std::string_view procedure);
/// Shows a plain box "Fehler <description> in Modul <name>.".
void showPlainFailure(ui::Ui& ui, const base::Error& error, std::string_view procedure);

/// Runs a procedure's body under the standard handler (form A); false when it failed.
template <class Body>
bool withStandardHandler(messages::Language& language, std::string_view procedure, Body&& body)
{
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const base::Error& error) {
    showStandardFailure(language, error, procedure);
    return false;
  }
}

/// Runs a procedure's body under the plain handler (form B); false when it failed.
template <class Body>
bool withPlainHandler(ui::Ui& ui, std::string_view procedure, Body&& body)
{
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const base::Error& error) {
    showPlainFailure(ui, error, procedure);
    return false;
  }
}

/// Accepts a line for a log and writes nothing: its callers document the steps of what they do.
void WriteLogFile(std::string_view Zeile);

} // namespace mrd::failures
