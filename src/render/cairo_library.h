#pragma once

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>

namespace velmar::render {

/// Those functions of cairo that pictures need, without the `cairo_` of their names. The library is
/// loaded with the first picture: with all that it needs in turn that takes longer than to edit a
/// small drawing, and a command that draws nothing runs where it is not installed.
class CairoLibrary {
 public:
  /// Fails with drawing::Error where cairo cannot be loaded, or has not all of them.
  static const CairoLibrary& get();

 private:
  /// To be assigned to a pointer to the function of that name.
  struct Found {
    void* address;
    template <class Function>
    operator Function*() const {
      return reinterpret_cast<Function*>(address);
    }
  };
  CairoLibrary();
  Found find(const char* name) const;

  void* library_;

 public:
  decltype(&cairo_clip) clip = find("cairo_clip");
  decltype(&cairo_close_path) close_path = find("cairo_close_path");
  decltype(&cairo_create) create = find("cairo_create");
  decltype(&cairo_destroy) destroy = find("cairo_destroy");
  decltype(&cairo_fill) fill = find("cairo_fill");
  decltype(&cairo_line_to) line_to = find("cairo_line_to");
  decltype(&cairo_move_to) move_to = find("cairo_move_to");
  decltype(&cairo_restore) restore = find("cairo_restore");
  decltype(&cairo_save) save = find("cairo_save");
  decltype(&cairo_set_fill_rule) set_fill_rule = find("cairo_set_fill_rule");
  decltype(&cairo_set_line_cap) set_line_cap = find("cairo_set_line_cap");
  decltype(&cairo_set_line_join) set_line_join = find("cairo_set_line_join");
  decltype(&cairo_set_line_width) set_line_width = find("cairo_set_line_width");
  decltype(&cairo_set_source_rgba) set_source_rgba = find("cairo_set_source_rgba");
  decltype(&cairo_status) status = find("cairo_status");
  decltype(&cairo_status_to_string) status_to_string = find("cairo_status_to_string");
  decltype(&cairo_stroke) stroke = find("cairo_stroke");
  decltype(&cairo_surface_destroy) surface_destroy = find("cairo_surface_destroy");
  decltype(&cairo_surface_finish) surface_finish = find("cairo_surface_finish");
  decltype(&cairo_surface_status) surface_status = find("cairo_surface_status");

  decltype(&cairo_image_surface_create) image_surface_create = find("cairo_image_surface_create");
  decltype(&cairo_surface_write_to_png_stream) surface_write_to_png_stream =
      find("cairo_surface_write_to_png_stream");
  decltype(&cairo_pdf_surface_create_for_stream) pdf_surface_create_for_stream =
      find("cairo_pdf_surface_create_for_stream");
  decltype(&cairo_svg_surface_create_for_stream) svg_surface_create_for_stream =
      find("cairo_svg_surface_create_for_stream");
  decltype(&cairo_svg_surface_set_document_unit) svg_surface_set_document_unit =
      find("cairo_svg_surface_set_document_unit");
};

}  // namespace velmar::render
