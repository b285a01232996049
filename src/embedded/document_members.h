#pragma once

#include <optional>

#include "embedded/document_state.h"
#include "host/member.h"

namespace velmar::embedded {

/// Fails (disconnected) where the document was closed.
void require_open(const DocumentState& document);

/// What every object of a document answers alike: Application, Document, Database (here the
/// document itself). Nothing for other members.
std::optional<basic::Value> document_member(const DocumentState& document, host::Member member);

}  // namespace velmar::embedded
