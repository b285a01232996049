#pragma once

#include <memory>

#include "com/adapter/connection.h"
#include "host/object.h"

namespace velmar::com {

/// A walk over a collection of an automation host; error 438 where the object is none. In the
/// host's process items come one by one, from another process many at a time, since each call there
/// is a round trip: of these, items erased by this connection in the meantime are left out.
std::unique_ptr<host::Enumerator> walk(IDispatch& collection,
                                       std::shared_ptr<Connection> connection);

}  // namespace velmar::com
