#pragma once

#include <unknwn.h>
#include <windows.h>

namespace velmar::com {

/// Makes objects of the published class. There is one for all threads; it does not keep the DLL
/// loaded, a lock on it does.
IClassFactory& class_factory();

}  // namespace velmar::com
