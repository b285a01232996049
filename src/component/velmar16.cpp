#include "component/velmar16.h"

#include <utility>

namespace velmar {

Velmar16::Velmar16(std::shared_ptr<System> system) : system_(std::move(system)) {}

}  // namespace velmar
