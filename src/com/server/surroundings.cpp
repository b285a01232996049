#include "com/server/surroundings.h"

namespace velmar::com {

std::shared_ptr<System> surroundings() { return std::make_shared<PlainSystem>(); }

}  // namespace velmar::com
