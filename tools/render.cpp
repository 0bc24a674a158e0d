// qdr render FILE -o PICTURE: a drawing as a picture or a page.

#include <algorithm>
#include <iostream>
#include <memory>

#include "hostcore/page.h"
#include "hostcore/script_stage.h"
#include "platform/file_path.h"
#include "platform/svg_surface.h"
#include "tools/arguments.h"
#include "tools/png_file.h"
#include "tools/verbs.h"
#ifdef QDR_WITH_PDF
#include "platform/pdf/pdf_surface.h"
#endif

namespace {

constexpr COLORREF kWhite = 0xffffff;
constexpr double kPageMillimetres = 297;  // the longer side of a page

struct Options {
  std::string path;
  std::string output;
  std::string data;
  CSize size{1697, 1200};  // the proportions of an A4 sheet
  COLORREF background = kWhite;
  std::optional<qdr_tools::Window> window;
};

// The proportions of the picture, the longer side as that of an A4 sheet.
qdr::VectorPage pageOf(CSize size) {
  const double scale = kPageMillimetres / std::max(size.cx, size.cy);
  qdr::VectorPage page;
  page.widthMillimetres = size.cx * scale;
  page.heightMillimetres = size.cy * scale;
  return page;
}

bool asPng(qdr::DrawingHost& host, const Options& options) {
  std::string bytes;
  std::string reason;
  if (!qdr_tools::encodePng(host.screen().pixels(), bytes, reason)) {
    qdr_tools::reportTrouble(options.output, reason);
    return false;
  }
  return qdr_tools::saveFile(options.output, bytes);
}

bool asSvg(qdr::DrawingHost& host, const Options& options) {
  qdr::SvgSurface surface(pageOf(options.size));
  qdr::drawPage(host, surface, options.background);
  return qdr_tools::saveFile(options.output, surface.document());
}

#ifdef QDR_WITH_PDF
bool asPdf(qdr::DrawingHost& host, const Options& options) {
  qdr::PdfSurface surface(pageOf(options.size));
  surface.setTitle(qdr::toUtf8(qdr::titleOf(qdr::fromUtf8(options.path).c_str()).text()));
  qdr::drawPage(host, surface, options.background);
  const std::vector<unsigned char> document = surface.document();
  if (document.empty()) {
    qdr_tools::reportTrouble(options.output, "the document cannot be made");
    return false;
  }
  return qdr_tools::saveFile(options.output, std::string(document.begin(), document.end()));
}
#endif

struct Format {
  const wchar_t* extension;
  bool (*write)(qdr::DrawingHost& host, const Options& options);
};

constexpr Format kFormats[] = {
    {L"png", asPng},
    {L"svg", asSvg},
#ifdef QDR_WITH_PDF
    {L"pdf", asPdf},
#endif
};

const Format* formatOf(const std::string& path) {
  const CString extension = qdr::extensionOf(qdr::fromUtf8(path).c_str());
  for (const Format& format : kFormats)
    if (extension.CompareNoCase(format.extension) == 0) return &format;
  return nullptr;
}

int render(const Options& options) {
  const Format* const format = formatOf(options.output);
  if (!format) {
    qdr_tools::reportTrouble(options.output, "no kind of picture by its extension");
    return qdr_tools::kUsage;
  }
  qdr_tools::useData(options.data);
  qdr::HostOptions hostOptions;
  hostOptions.viewSize = options.size;
  hostOptions.background = options.background;
  qdr::ScriptStage stage(hostOptions);
  qdr::DrawingHost& host = stage.host();
  if (const qdr::HostAnswer opened = host.open(qdr::fromUtf8(options.path)); !opened) {
    std::cerr << "qdr: " << qdr::toUtf8(opened.reason) << "\n";
    return qdr_tools::kFileTrouble;
  }
  if (options.window) {
    host.showWindow(options.window->min, options.window->max);
  } else {
    host.showExtents();
  }
  return format->write(host, options) ? qdr_tools::kSound : qdr_tools::kFileTrouble;
}

}  // namespace

void qdr_tools::addRender(CLI::App& app, int& exitCode) {
  const auto options = std::make_shared<Options>();
  CLI::App* verb = app.add_subcommand("render", "Draw a drawing as .png, .svg or .pdf");
  verb->add_option("FILE", options->path, "The drawing")->required();
  verb->add_option("-o,--output", options->output, "The picture")->required();
  addSize(*verb, options->size);
  addBackground(*verb, options->background);
  addWindow(*verb, options->window);
  addData(*verb, options->data);
  verb->callback([options, &exitCode] { exitCode = render(*options); });
}
