#pragma once
// The picture library's start and its failures. For the sources of this folder only.

#include <functional>
#include <string_view>

namespace mrd::image {

/// Carries out work of the library and turns its failure into ours, with the library's words behind `subject`. May be called on
/// several threads at once; the words are then those of any of them.
void withLibrary(std::string_view subject, const std::function<void()>& work);

/// Forgets a failure that was mended in another way.
void forgetFailure();

} // namespace mrd::image
