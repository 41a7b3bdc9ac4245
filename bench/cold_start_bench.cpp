// A cold start of the whole program on the simulated host, with and without stored accounts.
#include <benchmark/benchmark.h>

#include <string>

#include "simulated/simulated_program.h"

namespace {

void ColdStart(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto program = std::make_unique<quillbox::SimulatedProgram>();
    program->UsedBefore();
    for (int i = 0; i < state.range(0); ++i) {
      program->AddAccount("Account " + std::to_string(i), "ann@example.test", "rosemary");
    }
    state.ResumeTiming();
    program->Start();
    program->Host.RunFor(std::chrono::milliseconds(10));  // the submenus are filled
    state.PauseTiming();
    program.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(ColdStart)->Arg(0)->Arg(2)->Arg(201);

}  // namespace
