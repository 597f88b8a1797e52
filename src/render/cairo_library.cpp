#include "render/cairo_library.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace tidemark::render {

namespace {

constexpr const char* kLibrary = "libcairo.so.2";

struct Library {
  void* handle = nullptr;
  std::string problem;
  Library() {
    handle = dlopen(kLibrary, RTLD_NOW | RTLD_GLOBAL);
    if (handle == nullptr) {
      const char* why = dlerror();
      problem = std::string("The graph library ") + kLibrary +
                " cannot be loaded: " + (why != nullptr ? why : "unknown reason");
    }
  }
};

const Library& library() {
  static const Library loaded;
  return loaded;
}

// The function `name` of the library. Drawing without cairo_ready() is a fault of the
// program: it ends with the reason rather than jumping to nothing.
template <class Function>
Function function(const char* name) {
  void* found = library().handle != nullptr ? dlsym(library().handle, name) : nullptr;
  if (found == nullptr) {
    std::fprintf(stderr, "%s has no function %s\n", kLibrary, name);
    std::abort();
  }
  return reinterpret_cast<Function>(found);
}

}  // namespace

bool cairo_ready(std::string& problem) {
  problem = library().problem;
  return library().handle != nullptr;
}

}  // namespace tidemark::render

// Each cairo (and fontconfig) function the program calls, with the declaration of <cairo.h>: the
// compiler checks every parameter list against it.
#define TIDEMARK_CAIRO(result, name, parameters, arguments)                        \
  extern "C" result name parameters {                                              \
    static const auto call = tidemark::render::function<decltype(&::name)>(#name); \
    return call arguments;                                                         \
  }

TIDEMARK_CAIRO(void, cairo_arc,
               (cairo_t * cr, double xc, double yc, double radius, double angle1, double angle2),
               (cr, xc, yc, radius, angle1, angle2))
TIDEMARK_CAIRO(void, cairo_clip, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_close_path, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(cairo_t*, cairo_create, (cairo_surface_t * target), (target))
TIDEMARK_CAIRO(void, cairo_destroy, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_fill, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_fill_preserve, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_font_extents, (cairo_t * cr, cairo_font_extents_t* extents),
               (cr, extents))
TIDEMARK_CAIRO(void, cairo_get_matrix, (cairo_t * cr, cairo_matrix_t* matrix), (cr, matrix))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_get_target, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_identity_matrix, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_image_surface_create,
               (cairo_format_t format, int width, int height), (format, width, height))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_image_surface_create_for_data,
               (unsigned char* data, cairo_format_t format, int width, int height, int stride),
               (data, format, width, height, stride))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_image_surface_create_from_png_stream,
               (cairo_read_func_t read_func, void* closure), (read_func, closure))
TIDEMARK_CAIRO(unsigned char*, cairo_image_surface_get_data, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(int, cairo_image_surface_get_height, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(int, cairo_image_surface_get_stride, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(int, cairo_image_surface_get_width, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(void, cairo_line_to, (cairo_t * cr, double x, double y), (cr, x, y))
TIDEMARK_CAIRO(void, cairo_matrix_transform_point,
               (const cairo_matrix_t* matrix, double* x, double* y), (matrix, x, y))
TIDEMARK_CAIRO(void, cairo_move_to, (cairo_t * cr, double x, double y), (cr, x, y))
TIDEMARK_CAIRO(void, cairo_new_path, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_new_sub_path, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_paint, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_pdf_surface_create_for_stream,
               (cairo_write_func_t write_func, void* closure, double width_in_points,
                double height_in_points),
               (write_func, closure, width_in_points, height_in_points))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_ps_surface_create_for_stream,
               (cairo_write_func_t write_func, void* closure, double width_in_points,
                double height_in_points),
               (write_func, closure, width_in_points, height_in_points))
TIDEMARK_CAIRO(void, cairo_ps_surface_set_eps, (cairo_surface_t * surface, cairo_bool_t eps),
               (surface, eps))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_recording_surface_create,
               (cairo_content_t content, const cairo_rectangle_t* extents), (content, extents))
TIDEMARK_CAIRO(void, cairo_rectangle,
               (cairo_t * cr, double x, double y, double width, double height),
               (cr, x, y, width, height))
TIDEMARK_CAIRO(void, cairo_restore, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_rotate, (cairo_t * cr, double angle), (cr, angle))
TIDEMARK_CAIRO(void, cairo_save, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_scale, (cairo_t * cr, double sx, double sy), (cr, sx, sy))
TIDEMARK_CAIRO(void, cairo_set_dash,
               (cairo_t * cr, const double* dashes, int num_dashes, double offset),
               (cr, dashes, num_dashes, offset))
TIDEMARK_CAIRO(void, cairo_set_font_size, (cairo_t * cr, double size), (cr, size))
TIDEMARK_CAIRO(void, cairo_set_line_cap, (cairo_t * cr, cairo_line_cap_t line_cap), (cr, line_cap))
TIDEMARK_CAIRO(void, cairo_set_line_join, (cairo_t * cr, cairo_line_join_t line_join),
               (cr, line_join))
TIDEMARK_CAIRO(void, cairo_set_line_width, (cairo_t * cr, double width), (cr, width))
TIDEMARK_CAIRO(void, cairo_set_source_rgb, (cairo_t * cr, double red, double green, double blue),
               (cr, red, green, blue))
TIDEMARK_CAIRO(void, cairo_set_source_rgba,
               (cairo_t * cr, double red, double green, double blue, double alpha),
               (cr, red, green, blue, alpha))
TIDEMARK_CAIRO(void, cairo_set_source_surface,
               (cairo_t * cr, cairo_surface_t* surface, double x, double y), (cr, surface, x, y))
TIDEMARK_CAIRO(void, cairo_show_text, (cairo_t * cr, const char* utf8), (cr, utf8))
TIDEMARK_CAIRO(cairo_status_t, cairo_status, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(const char*, cairo_status_to_string, (cairo_status_t status), (status))
TIDEMARK_CAIRO(void, cairo_stroke, (cairo_t * cr), (cr))
TIDEMARK_CAIRO(void, cairo_surface_destroy, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(void, cairo_surface_finish, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(void, cairo_surface_flush, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(cairo_surface_type_t, cairo_surface_get_type, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(cairo_status_t, cairo_surface_status, (cairo_surface_t * surface), (surface))
TIDEMARK_CAIRO(cairo_status_t, cairo_surface_write_to_png_stream,
               (cairo_surface_t * surface, cairo_write_func_t write_func, void* closure),
               (surface, write_func, closure))
TIDEMARK_CAIRO(cairo_surface_t*, cairo_svg_surface_create_for_stream,
               (cairo_write_func_t write_func, void* closure, double width_in_points,
                double height_in_points),
               (write_func, closure, width_in_points, height_in_points))
TIDEMARK_CAIRO(void, cairo_text_extents,
               (cairo_t * cr, const char* utf8, cairo_text_extents_t* extents), (cr, utf8, extents))
TIDEMARK_CAIRO(void, cairo_translate, (cairo_t * cr, double tx, double ty), (cr, tx, ty))
TIDEMARK_CAIRO(cairo_font_face_t*, cairo_ft_font_face_create_for_pattern, (FcPattern * pattern),
               (pattern))
TIDEMARK_CAIRO(void, cairo_set_font_face, (cairo_t * cr, cairo_font_face_t* font_face),
               (cr, font_face))
TIDEMARK_CAIRO(void, cairo_font_face_destroy, (cairo_font_face_t * font_face), (font_face))
TIDEMARK_CAIRO(void*, cairo_get_user_data, (cairo_t * cr, const cairo_user_data_key_t* key),
               (cr, key))
TIDEMARK_CAIRO(cairo_status_t, cairo_set_user_data,
               (cairo_t * cr, const cairo_user_data_key_t* key, void* user_data,
                cairo_destroy_func_t destroy),
               (cr, key, user_data, destroy))
// fontconfig, which cairo loads: its functions are found through cairo's library.
TIDEMARK_CAIRO(FcPattern*, FcPatternCreate, (), ())
TIDEMARK_CAIRO(void, FcPatternDestroy, (FcPattern * p), (p))
TIDEMARK_CAIRO(FcBool, FcPatternAddInteger, (FcPattern * p, const char* object, int i),
               (p, object, i))
TIDEMARK_CAIRO(FcBool, FcPatternAddString, (FcPattern * p, const char* object, const FcChar8* s),
               (p, object, s))
