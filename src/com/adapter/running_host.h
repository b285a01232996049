#pragma once

#include <functional>
#include <memory>
#include <string>

#include "com/adapter/dispatch_object.h"

namespace velmar::com {

/// The program identifier of the host: the environment variable VELMAR_HOST where it is set, else
/// "AutoCAD.Application".
std::string host_program();

/// The application object of the running host, or of one that is started for it. Error 429, saying
/// which program was looked for, where neither is possible.
std::shared_ptr<DispatchObject> find_host();

/// Makes what a thread holds of its host: an object that answers Application, and finds the host
/// anew after its process has ended. Fails as find_host() does.
std::function<std::shared_ptr<host::Object>()> host_factory();

}  // namespace velmar::com
