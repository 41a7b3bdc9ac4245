// Answering requests line by line.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// The answer to one request, a line with its line feed. Never fails: what is wrong with the request
// stands in the answer.
void AnswerRequest(std::string_view line, std::string& answers);

// Reads requests from the descriptor `in`, one a line, until it ends, and writes the answers to
// `out` in the same order. Answers are written whenever no further line waits. The exit code of the
// program: 0, or 2 when reading or writing failed.
int RunBatch(int in, int out);

}  // namespace quillbox
