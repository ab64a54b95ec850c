#pragma once
// The border between the core's text and paths and those that widgets show.

#include <QString>

#include <string>
#include <string_view>

namespace mrd::desktop {

inline QString shown(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

/// For tool tips, which take text with angle brackets for markup.
inline QString shownToolTip(std::string_view utf8) { return "<p>" + shown(utf8).toHtmlEscaped() + "</p>"; }

/// A path of the system as users of this machine write it; what is no path of this machine is shown as it stands.
QString shownPath(std::string_view systemPath);
/// The other way, for what a user typed.
std::string typedPath(const QString& text);

} // namespace mrd::desktop
