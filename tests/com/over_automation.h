#pragma once

#include <memory>

#include "com/adapter/dispatch_object.h"
#include "com/automation/apartment.h"
#include "com/host_server/served_objects.h"
#include "host/view.h"

namespace velmar::com {

/// Both sides of automation in one process: the server's objects, and the adapter's view of them.
struct OverAutomation {
  Apartment apartment;
  std::shared_ptr<ServedObjects> served = std::make_shared<ServedObjects>();
  std::shared_ptr<Connection> connection = std::make_shared<Connection>();

  template <class View = host::View>
  View view(const std::shared_ptr<host::Object>& object) const {
    return View(over(served->serve(object)));
  }
  std::shared_ptr<host::Object> over(ComPtr<IDispatch> object) const {
    return std::make_shared<DispatchObject>(std::move(object), connection);
  }
};

}  // namespace velmar::com
