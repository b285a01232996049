#include "com/server/surroundings.h"

#include "com/adapter/running_host.h"
#include "component/session.h"
#include "system/user_system.h"

namespace velmar::com {

std::shared_ptr<System> surroundings() {
  [[maybe_unused]] static const bool installed = [] {
    install_host_factory(host_factory());
    return true;
  }();
  return system::user_system();
}

}  // namespace velmar::com
