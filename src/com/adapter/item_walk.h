#pragma once

#include <memory>

#include "com/adapter/connection.h"
#include "host/object.h"

namespace velmar::com {

/// Whether the object lives in another process, or on another thread.
bool is_afar(IUnknown& object);

/// A walk over a collection of an automation host; error 438 where the object is none. From afar,
/// where each call is a round trip, many items are fetched at a time; those that this connection
/// has erased since then are left out.
std::unique_ptr<host::Enumerator> walk(IDispatch& collection,
                                       std::shared_ptr<Connection> connection, bool from_afar);

}  // namespace velmar::com
