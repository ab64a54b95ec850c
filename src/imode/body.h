#pragma once
// A page's body as telephones show it: no tables, headings centred, and a place for each small picture.

#include "generator/body_rewriter.h"

namespace mrd::imode {

/// Only the page's own HTML counts: it is read as a document, and what comes before its first text may go into the document's
/// head and is lost. The references of local pictures stay open. Works on values alone: can run on any thread.
generator::RewrittenBody rewriteBody(const generator::BodySource& source);

} // namespace mrd::imode
