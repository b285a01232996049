#pragma once

#include <ole2.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "com/automation/com_ptr.h"
#include "host/member.h"

namespace velmar::com {

/// What the members of one type of objects are called by, as far as they have been asked for.
struct DispatchIds {
  std::string type_name;  // as error texts name it
  std::vector<std::pair<host::Member, DISPID>> known;

  /// DISPID_UNKNOWN where it has not been asked for.
  DISPID find(host::Member member) const;
};

/// The types of the objects that a host has handed out. The same name has different numbers on
/// different types, so objects share what is known only where their type information names the same
/// interface; an object without type information has its numbers for itself.
class KnownTypes {
 public:
  std::shared_ptr<DispatchIds> of(IDispatch& object);

 private:
  struct Known {
    GUID interface_id;
    std::shared_ptr<DispatchIds> ids;
  };
  std::vector<Known> types_;
  bool without_type_information_ = false;  // seen once, it is not asked for again: a call saved
};

}  // namespace velmar::com
