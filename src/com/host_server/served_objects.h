#pragma once

#include <memory>
#include <unordered_map>

#include "com/automation/variant.h"
#include "host/object.h"

namespace velmar::com {

class ServedObject;

/// The host's objects that automation clients hold: one automation object for each, as long as
/// anyone holds it. All calls come on one thread.
class ServedObjects : public ObjectBorder, public std::enable_shared_from_this<ServedObjects> {
 public:
  /// The same automation object for the same host object.
  ComPtr<IDispatch> serve(const std::shared_ptr<host::Object>& object);

  /// Only objects that are served from this process are known inside; others are error 13.
  basic::Reference inward(IDispatch& object) const override;
  ComPtr<IDispatch> outward(const basic::Reference& object) const override;

  /// How many automation objects anyone holds.
  std::size_t alive() const { return served_.size(); }
  /// References that other processes hold, and calls that came in: what a server's lifetime hangs
  /// on.
  unsigned connections() const { return connections_; }
  unsigned calls() const { return calls_; }

 private:
  friend class ServedObject;

  std::unordered_map<const host::Object*, ServedObject*> served_;
  unsigned connections_ = 0, calls_ = 0;
};

}  // namespace velmar::com
