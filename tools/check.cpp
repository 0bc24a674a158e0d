// qdr check FILE: what is damaged, where, in which record.

#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "database/file/drawing_scanner.h"
#include "tools/verbs.h"

namespace {

struct Options {
  std::string path;
  bool asJson = false;
};

std::string toText(const std::string& path, const qdr::ScanFault& fault) {
  return path + ": at " + std::to_string(fault.offset) + ": " + fault.object + ": " +
         qdr::faultName(fault.kind) + ": " + fault.detail;
}

nlohmann::json toJson(const qdr::ScanFault& fault) {
  return {{"kind", qdr::faultName(fault.kind)},
          {"offset", fault.offset},
          {"object", fault.object},
          {"detail", fault.detail}};
}

// Faults go out as they come, so that a file of nothing but faults needs no memory for them.
struct TextReport : qdr::DrawingVisitor {
  explicit TextReport(const std::string& file) : path(file) {}
  void onFault(const qdr::ScanFault& fault) override { std::cout << toText(path, fault) << "\n"; }
  const std::string& path;
};

struct JsonReport : qdr::DrawingVisitor {
  void onFault(const qdr::ScanFault& fault) override { faults.push_back(toJson(fault)); }
  nlohmann::json faults = nlohmann::json::array();
};

std::uint64_t recordCount(const qdr::ScannedDrawing& drawing) {
  std::uint64_t sum = 0;
  for (const std::uint64_t count : drawing.records)
    sum += count;
  return sum;
}

std::uint64_t reportText(const std::string& path, const std::string& bytes) {
  TextReport report(path);
  const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, report);
  std::cout << path << ": " << (drawing.faults == 0 ? "sound" : "damaged") << ", "
            << recordCount(drawing) << " records, " << drawing.entities << " entities, "
            << drawing.faults << " faults\n";
  return drawing.faults;
}

std::uint64_t reportJson(const std::string& path, const std::string& bytes) {
  JsonReport report;
  const qdr::ScannedDrawing drawing = qdr::scanDrawing(bytes, report);
  const nlohmann::json answer = {{"file", path},
                                 {"sound", drawing.faults == 0},
                                 {"records", recordCount(drawing)},
                                 {"entities", drawing.entities},
                                 {"faults", std::move(report.faults)}};
  std::cout << answer.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
  return drawing.faults;
}

int run(const Options& options) {
  std::string bytes;
  if (!qdr_tools::loadFile(options.path, bytes)) return qdr_tools::kFileTrouble;
  const auto report = options.asJson ? reportJson : reportText;
  return report(options.path, bytes) == 0 ? qdr_tools::kSound : qdr_tools::kDamaged;
}

}  // namespace

void qdr_tools::addCheck(CLI::App& app, int& exitCode) {
  const auto options = std::make_shared<Options>();
  CLI::App* verb = app.add_subcommand("check", "Tell what is damaged in a drawing, and where");
  verb->add_option("FILE", options->path, "The drawing")->required();
  verb->add_flag("--json", options->asJson, "Answer as JSON");
  verb->callback([options, &exitCode] { exitCode = run(*options); });
}
