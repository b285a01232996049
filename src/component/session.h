#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <string_view>

#include "host/document.h"
#include "host/entity_cast.h"

/// The way from a command to the drawing. Each function walks it afresh, from the thread's
/// HostApplication, so that a command goes on in whichever drawing is active at that moment: keep
/// no document across steps.
namespace velmar {

using HostFactory = std::function<std::shared_ptr<host::Object>()>;

/// How a thread's HostApplication is made. For the whole process: install before a thread runs a
/// command. Threads may call the factory at the same time.
void install_host_factory(HostFactory factory);

/// This thread's, made on first use; error 429 where no factory is installed or it makes nothing.
host::HostApplication host_application();

/// Forgets this thread's HostApplication; the next use makes another. It also ends with its thread,
/// but not on Windows, where a host must be let go before COM leaves the thread.
void release_host_application();

host::Application application();
host::Document active_document();
host::Utility utility();
host::ModelSpace model_space();
host::SelectionSets selection_sets();

/// The active document's entity of that handle, through the view of a kind; error 13 where it is of
/// another kind.
template <std::derived_from<host::Entity> T>
T entity(std::string_view handle) {
  return host::as<T>(active_document().HandleToObject(handle));
}

}  // namespace velmar
