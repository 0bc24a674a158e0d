// qdr thumb FILE -o PICTURE: the small picture in the header of a drawing.

#include <cstring>
#include <memory>

#include "database/file/drawing_blocks.h"
#include "platform/gdi_objects.h"
#include "tools/png_file.h"
#include "tools/verbs.h"

namespace {

struct Options {
  std::string path;
  std::string output;
};

constexpr std::size_t kColors = 256;
constexpr std::size_t kColorBytes = 4;
constexpr std::size_t kRowsAt = sizeof(BITMAPINFOHEADER) + kColors * kColorBytes;

bool isThumbnail(const BITMAPINFOHEADER& header) {
  return header.biWidth == qdr::kThumbnailWidth && header.biHeight == qdr::kThumbnailHeight &&
         header.biBitCount == 8;
}

// The bitmap holds the drawing upside down and begins with its bottom row, so its rows as they
// stand show the drawing upright. Its colours have blue first.
std::shared_ptr<qdr::PixelBuffer> pictureOf(const std::uint8_t* thumbnail) {
  const auto picture = qdr::PixelBuffer::create(qdr::kThumbnailWidth, qdr::kThumbnailHeight);
  if (!picture) return nullptr;
  const std::uint8_t* const colors = thumbnail + sizeof(BITMAPINFOHEADER);
  const std::uint8_t* index = thumbnail + kRowsAt;
  for (int y = 0; y < picture->height(); ++y) {
    for (int x = 0; x < picture->width(); ++x) {
      const std::uint8_t* const color = colors + kColorBytes * *index++;
      const COLORREF value = color[2] | COLORREF{color[1]} << 8 | COLORREF{color[0]} << 16;
      picture->row(y)[x] = qdr::pixelOf(value);
    }
  }
  return picture;
}

int thumb(const Options& options) {
  std::string bytes;
  if (!qdr_tools::loadFile(options.path, bytes)) return qdr_tools::kFileTrouble;
  QdrDbFileHeader_tag header;
  if (bytes.size() < sizeof header) {
    qdr_tools::reportTrouble(options.path, "too short for a drawing");
    return qdr_tools::kFileTrouble;
  }
  std::memcpy(&header, bytes.data(), sizeof header);
  BITMAPINFOHEADER bitmap;
  std::memcpy(&bitmap, header.thumbnail, sizeof bitmap);
  if (!isThumbnail(bitmap)) {
    qdr_tools::reportTrouble(options.path, "was saved without a thumbnail");
    return qdr_tools::kDamaged;
  }
  const std::shared_ptr<qdr::PixelBuffer> picture = pictureOf(header.thumbnail);
  std::string encoded;
  std::string reason = "there is no memory for the picture";
  if (!picture || !qdr_tools::encodePng(*picture, encoded, reason)) {
    qdr_tools::reportTrouble(options.output, reason);
    return qdr_tools::kFileTrouble;
  }
  const bool written = qdr_tools::saveFile(options.output, encoded);
  return written ? qdr_tools::kSound : qdr_tools::kFileTrouble;
}

}  // namespace

void qdr_tools::addThumb(CLI::App& app, int& exitCode) {
  const auto options = std::make_shared<Options>();
  CLI::App* verb = app.add_subcommand("thumb", "Write the thumbnail of a drawing as .png");
  verb->add_option("FILE", options->path, "The drawing")->required();
  verb->add_option("-o,--output", options->output, "The picture")->required();
  verb->callback([options, &exitCode] { exitCode = thumb(*options); });
}
