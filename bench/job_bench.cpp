// What this program itself costs around a job whose thread has ended before the first poll: at most a
// millisecond.
#include <benchmark/benchmark.h>

#include <iostream>
#include <string>
#include <vector>

#include "deployment/agent_configuration.h"
#include "deployment/job.h"
#include "deployment/result_catalogue.h"
#include "deployment/run_log.h"
#include "tests/deployment/fake_run_screen.h"
#include "tests/fakes/fake_host.h"

namespace {

using namespace varnhold;

constexpr double kLimitSeconds = 0.001;

struct Run {
  Run() {
    program.gAppPath = R"(C:\App)";
    program.gInstallerDir = R"(C:\V\RemoteInstaller)";
    fake.libraries.computers["HOST1"] = {};
    fake.libraries.computers["HOST1"].installExit = 1180;
  }
  /// The fakes remember all they are asked; that is no cost of the program.
  void forget() {
    fake.journal.clear();
    static_cast<void>(fake.files.remove(R"(C:\App\AILog.txt)"));
  }

  fakes::FakeHost fake;
  fakes::FakeRunScreen screen{fake.journal};
  core::Program program{fake.host(), core::kManagerTitle};
};

void wizardJob(benchmark::State& state) {
  Run run;
  const deployment::JobChoices choices{.Operation = deployment::kOperationInstall, .optClient0 = true};
  for (auto _ : state) {
    platform::DeploymentJob job;
    job.SystemName = "HOST1";
    const auto thread = StartDeploymentJob(run.program, choices, job);
    const auto code = WaitForJob(run.program.host, run.screen, thread, 0, 99);
    benchmark::DoNotOptimize(DescribeResult(code, job.SystemName, deployment::Product::Varnhold));
    run.forget();
  }
}
BENCHMARK(wizardJob)->UseRealTime();

void commandLineJob(benchmark::State& state) {
  Run run;
  auto& host = run.program.host;
  for (auto _ : state) {
    platform::DeploymentJob job;
    job.SystemName = "HOST1";
    std::string name = job.SystemName, directory = R"(C:\A)";
    const auto ready =
        deployment::prepareAgentInstall(host.libraries, run.program.gInstallerDir, name, directory, 1, false);
    if (!ready.ready) state.SkipWithError("the job was not prepared");
    const auto thread = host.libraries.qrvCInstall(job, deployment::libraryPath(run.program.gInstallerDir));
    const auto code = deployment::waitForThread(host.threads, host.clock, thread);
    deployment::appendLogLines(
        host.files, run.program.gAppPath,
        {deployment::stampedLine(host.clock.getLocalTime(),
                                 deployment::VarnholdResultText(code, job.SystemName))});
    run.forget();
  }
}
BENCHMARK(commandLineJob)->UseRealTime();

/// Prints as usual and remembers whether a benchmark went over the limit or did not run.
class LimitReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& run : runs) {
      const auto seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
      if (run.error_occurred || seconds > kLimitSeconds) withinLimit = false;
    }
    ConsoleReporter::ReportRuns(runs);
  }
  bool withinLimit = true;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  LimitReporter reporter;
  const auto ran = benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  if (ran > 0 && reporter.withinLimit) return 0;
  std::cerr << "The overhead of a finished job is not below 1 ms.\n";
  return 1;
}
