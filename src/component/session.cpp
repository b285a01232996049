#include "component/session.h"

#include <utility>

#include "basic/failure.h"

namespace velmar {
namespace {

// The one global state of the system: COM calls a method with nothing but the object and its
// arguments.
HostFactory host_factory;
thread_local host::HostApplication* this_threads_host = nullptr;

#ifndef _WIN32
struct ReleaseAtEnd {
  ~ReleaseAtEnd() { release_host_application(); }
};
#endif

void make_this_threads_host() {
  auto object = host_factory ? host_factory() : nullptr;
  if (!object) throw basic::Failure(basic::cannot_create_object);
  this_threads_host = new host::HostApplication(std::move(object));
#ifndef _WIN32
  // On Windows this would keep the component server's DLL loaded, and would run too late, when COM
  // has left the thread: the server has its own way to know when a thread ends.
  thread_local const ReleaseAtEnd at_end_of_thread;
#endif
}

}  // namespace

void install_host_factory(HostFactory factory) { host_factory = std::move(factory); }

host::HostApplication host_application() {
  if (!this_threads_host) make_this_threads_host();
  return *this_threads_host;
}

void release_host_application() { delete std::exchange(this_threads_host, nullptr); }

host::Application application() { return host_application().Application(); }
host::Document active_document() { return application().ActiveDocument(); }
host::Utility utility() { return active_document().Utility(); }
host::ModelSpace model_space() { return active_document().ModelSpace(); }
host::SelectionSets selection_sets() { return active_document().SelectionSets(); }

}  // namespace velmar
