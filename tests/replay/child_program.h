// Running the real program with pipes at both its ends.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

class ChildProgram {
 public:
  explicit ChildProgram(const std::vector<std::string>& arguments) {
    int in[2], out[2], err[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0) {
      throw std::runtime_error("no pipes");
    }
    process_ = fork();
    if (process_ == 0) Become(arguments, in[0], out[1], err[1]);
    close(in[0]);
    close(out[1]);
    close(err[1]);
    input_ = in[1];
    output_ = out[0];
    error_ = err[0];
  }

  ~ChildProgram() {
    CloseInput();
    close(output_);
    close(error_);
    if (process_ > 0) waitpid(process_, nullptr, 0);
  }

  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  void Write(std::string_view text) {
    while (!text.empty()) {
      const ssize_t count = write(input_, text.data(), text.size());
      ASSERT_GT(count, 0);
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }

  void CloseInput() {
    if (input_ >= 0) close(input_);
    input_ = -1;
  }

  // Up to the next line feed, which is left out. Fails when the program keeps the line back.
  std::string ReadLine() {
    std::string line;
    for (char c = 0; ReadByte(c) && c != '\n';) line += c;
    return line;
  }

  std::string ReadOutput() { return ReadAll(output_); }
  std::string ReadErrors() { return ReadAll(error_); }

  int ExitCode() {
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  [[noreturn]] static void Become(const std::vector<std::string>& arguments, int in, int out,
                                  int err) {
    dup2(in, STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    std::string program = QUILLBOX_REPLAY;
    std::vector<std::string> copies = arguments;
    std::vector<char*> texts = {program.data()};
    for (std::string& copy : copies) texts.push_back(copy.data());
    texts.push_back(nullptr);
    execv(program.c_str(), texts.data());
    _exit(127);
  }

  bool ReadByte(char& c) {
    constexpr int kPatienceMilliseconds = 60'000;  // only a hanging program gets so far
    pollfd waiting{output_, POLLIN, 0};
    if (poll(&waiting, 1, kPatienceMilliseconds) != 1) {
      ADD_FAILURE() << "no answer came";
      return false;
    }
    return read(output_, &c, 1) == 1;
  }

  static std::string ReadAll(int from) {
    std::string text;
    char chunk[4096];
    for (ssize_t count = 0; (count = read(from, chunk, sizeof chunk)) > 0;) {
      text.append(chunk, static_cast<std::size_t>(count));
    }
    return text;
  }

  pid_t process_ = -1;
  int input_ = -1, output_ = -1, error_ = -1;
};

}  // namespace quillbox
