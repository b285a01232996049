// Text DXF.

#include "open_and_save.h"
#include "target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  velmar::fuzz::open_and_save(velmar::fuzz::text_of(data, size));
  return 0;
}
