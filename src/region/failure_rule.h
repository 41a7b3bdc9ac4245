// The failure rule: a step that fails has no effect, and a test that fails counts as true.
#pragma once

namespace quillbox {

// A step can't be carried out: a text that a conversion refuses, a cell that isn't there, a
// division by zero, an overflow. Only the two functions below catch it.
struct StepFailed {};
using ConversionFailed = StepFailed;

// Runs a step and drops it when it fails. The step must work everything out before it changes
// anything, so that a failure leaves no trace.
template <typename Step>
void Attempt(Step step) {
  try {
    step();
  } catch (const StepFailed&) {
  }
}

// The test's answer; true when it can't be evaluated.
template <typename Test>
bool TrueOrFailed(Test test) {
  try {
    return test();
  } catch (const StepFailed&) {
    return true;
  }
}

}  // namespace quillbox
