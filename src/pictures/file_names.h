#pragma once

#include <string>
#include <string_view>

namespace mrd::pictures {

/// A file name as it can stand on the web: umlauts spelled out (capital ones as lower-case pairs), blanks, "&" and quotes as "_".
std::string bereinige_dateiname(std::string_view name);

} // namespace mrd::pictures
