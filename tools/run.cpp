// qdr run SCRIPT: plays a script through the command dialogue.

#include <iostream>
#include <memory>

#include "hostcore/data_folder.h"
#include "hostcore/script_player.h"
#include "tools/arguments.h"
#include "tools/verbs.h"

namespace {

struct Options {
  std::string script;
  std::string output;
  std::string data;
  CSize size{800, 600};
  COLORREF background = 0;
  bool showLog = false;
};

void printLog(qdr::DrawingHost& host) {
  CString log;
  host.log().GetWindowText(log);
  std::cout << qdr::toUtf8(log.text());
  if (log.IsEmpty() || log[log.GetLength() - 1] != L'\n') std::cout << "\n";
}

int run(const Options& options) {
  std::string text;
  if (!qdr_tools::loadFile(options.script, text)) return qdr_tools::kFileTrouble;
  qdr_tools::useData(options.data);
  qdr::HostOptions host;
  host.promptFile = qdr::dataFile(L"prompts/en.msg");
  host.viewSize = options.size;
  host.background = options.background;
  qdr::ScriptStage stage(host);
  const qdr::ScriptOutcome outcome = qdr::ScriptPlayer(stage).play(text);
  if (options.showLog) printLog(stage.host());
  for (const qdr::ScriptedUi::Box& box : stage.platform().ui.boxes())
    std::cerr << "qdr: message: " << qdr::toUtf8(box.text) << "\n";
  if (!outcome) {
    qdr_tools::reportTrouble(options.script + ":" + std::to_string(outcome.line),
                             qdr::toUtf8(outcome.reason));
    return static_cast<int>(outcome.end);
  }
  if (options.output.empty()) return qdr_tools::kSound;
  const qdr::HostAnswer saved = stage.host().save(qdr::fromUtf8(options.output));
  if (saved) return qdr_tools::kSound;
  std::cerr << "qdr: " << qdr::toUtf8(saved.reason) << "\n";
  return qdr_tools::kFileTrouble;
}

}  // namespace

void qdr_tools::addRun(CLI::App& app, int& exitCode) {
  const auto options = std::make_shared<Options>();
  CLI::App* verb = app.add_subcommand("run", "Play a script, see docs/script.md");
  verb->add_option("SCRIPT", options->script, "The script")->required();
  verb->add_option("-o,--output", options->output, "Where to save the drawing (.kov)");
  verb->add_flag("--log", options->showLog, "Print the command log");
  addSize(*verb, options->size);
  addBackground(*verb, options->background);
  addData(*verb, options->data);
  verb->callback([options, &exitCode] { exitCode = run(*options); });
}
