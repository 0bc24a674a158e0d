#include "tools/png_file.h"

#include <png.h>

#include <vector>

namespace qdr_tools {

bool encodePng(const qdr::PixelBuffer& pixels, std::string& bytes, std::string& reason) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(pixels.width());
  image.height = static_cast<png_uint_32>(pixels.height());
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> samples;
  samples.reserve(3u * image.width * image.height);
  for (int y = 0; y < pixels.height(); ++y) {
    const qdr::Pixel* row = pixels.row(y);
    for (int x = 0; x < pixels.width(); ++x) {
      for (const int shift : {16, 8, 0})
        samples.push_back(static_cast<png_byte>((row[x] >> shift) & 0xff));
    }
  }
  // Written into a bound first, then trimmed: no second pass of compression to learn the size.
  const std::size_t start = bytes.size();
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  bytes.resize(start + size);
  const int done =
      png_image_write_to_memory(&image, bytes.data() + start, &size, 0, samples.data(), 0, nullptr);
  bytes.resize(start + (done ? size : 0));
  if (!done) reason = image.message;
  png_image_free(&image);
  return done != 0;
}

}  // namespace qdr_tools
