// Binary DXF: what stands behind the sentinel.

#include "open_and_save.h"
#include "target.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string sentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);
  velmar::fuzz::open_and_save(sentinel + velmar::fuzz::text_of(data, size));
  return 0;
}
