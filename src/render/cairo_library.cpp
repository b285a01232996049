#ifdef VELMAR_CAIRO

#include "render/cairo_library.h"

#include <dlfcn.h>

#include <string>

#include "drawing/error.h"

namespace velmar::render {
namespace {

void* checked(void* found) {
  if (found) return found;
  throw drawing::Error("pictures are drawn with cairo, which cannot be loaded (" +
                       std::string(::dlerror()) + "); install the package libcairo2");
}

}  // namespace

CairoLibrary::CairoLibrary() : library_(checked(::dlopen("libcairo.so.2", RTLD_NOW))) {}

CairoLibrary::Found CairoLibrary::find(const char* name) const {
  return {checked(::dlsym(library_, name))};
}

const CairoLibrary& CairoLibrary::get() {
  static const CairoLibrary library;
  return library;
}

}  // namespace velmar::render

#endif
