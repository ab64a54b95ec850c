#pragma once
// Which files the library's second reader gets. For the sources of this folder only.

#include <string>

namespace mrd::image {

/// Whether the file, named as the machine names it, begins like a bitmap with or without the head of a file, an icon or a PCX
/// picture, or is a Windows metafile whose records are whole: its reader speaks up by itself about others.
bool isForSecondReader(const std::string& file);

} // namespace mrd::image
