#include "tools/korvel/PlotCanvas.h"

#include <cmath>

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include "korvelfile/outside/base/FileReplacement.h"
#include "tools/korvel/InputError.h"

namespace {

constexpr double kPixelsPerPoint = 2.0;

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned int size) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), size);
  return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* MakeImage(double width, double height) {
  cairo_surface_t* image = cairo_image_surface_create(
      CAIRO_FORMAT_RGB24, static_cast<int>(std::ceil(width * kPixelsPerPoint)),
      static_cast<int>(std::ceil(height * kPixelsPerPoint)));
  cairo_surface_set_device_scale(image, kPixelsPerPoint, kPixelsPerPoint);
  return image;
}

cairo_surface_t* MakeSurface(const std::string& extension, double width, double height,
                             std::string* bytes) {
  if (extension == ".png") return MakeImage(width, height);
  return extension == ".pdf" ? cairo_pdf_surface_create_for_stream(Append, bytes, width, height)
                             : cairo_svg_surface_create_for_stream(Append, bytes, width, height);
}

}  // namespace

namespace korvel {

PlotCanvas::PlotCanvas(const std::string& extension, double width, double height)
    : isPng_(extension == ".png"),
      surface_(MakeSurface(extension, width, height, &bytes_)),
      context_(cairo_create(surface_)) {
  cairo_set_source_rgb(context_, 1.0, 1.0, 1.0);
  cairo_paint(context_);
}

PlotCanvas::~PlotCanvas() {
  cairo_destroy(context_);
  cairo_surface_destroy(surface_);
}

void PlotCanvas::Write(const std::string& path) {
  cairo_status_t status = cairo_status(context_);
  if (status == CAIRO_STATUS_SUCCESS && isPng_)
    status = cairo_surface_write_to_png_stream(surface_, Append, &bytes_);
  cairo_surface_finish(surface_);
  if (status == CAIRO_STATUS_SUCCESS) status = cairo_surface_status(surface_);
  if (status != CAIRO_STATUS_SUCCESS)
    throw InputError(path + ": can't be drawn: " + cairo_status_to_string(status));
  FileReplacement file;
  if (!file.Open(path) || !file.Write(bytes_.data(), bytes_.size()) || !file.Commit())
    throw InputError(path + ": can't be written");
}

}  // namespace korvel
