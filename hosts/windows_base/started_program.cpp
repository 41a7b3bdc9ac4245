#include "windows_base/started_program.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <map>

#include "windows_base/wide_text.h"

namespace quillbox {
namespace {

// So that the usual rules give it back: a backslash counts only before a quotation mark.
std::wstring Quoted(const std::wstring& argument) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t c : argument) {
    if (c == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring CommandLine(const ProgramStart& start) {
  std::wstring line = Quoted(WideOfPath(start.Program));
  for (const std::string& argument : start.Arguments) {
    line += L' ' + Quoted(WideOfCodePage(argument));
  }
  return line;
}

struct LessName {
  bool operator()(const std::wstring& a, const std::wstring& b) const {
    return ::CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_LESS_THAN;
  }
};

// This process's environment with the changes made to it, in the form that a start takes. The names
// that begin with "=" are the system's own.
std::wstring ChangedEnvironment(const ProgramStart& start) {
  std::map<std::wstring, std::wstring, LessName> variables;
  wchar_t* const own = ::GetEnvironmentStringsW();
  for (const wchar_t* entry = own; *entry != L'\0'; entry += std::wcslen(entry) + 1) {
    const std::wstring text = entry;
    const std::size_t equals = text.find(L'=', 1);
    if (equals != std::wstring::npos) variables[text.substr(0, equals)] = text.substr(equals + 1);
  }
  ::FreeEnvironmentStringsW(own);
  for (const auto& [name, value] : start.Environment) {
    variables[WideOfCodePage(name)] = WideOfCodePage(value);
  }
  std::wstring block;
  for (const auto& [name, value] : variables) {
    if (!value.empty()) block += name + L'=' + value + L'\0';
  }
  return block + L'\0';
}

HANDLE Nowhere() {
  static const OwnHandle nowhere = [] {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return OwnHandle(::CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0,
                                   nullptr));
  }();
  return nowhere.get();
}

// Null when it can't be started. It runs once its thread is resumed.
OwnHandle StartHeld(const ProgramStart& start, OwnHandle& thread) {
  STARTUPINFOEXW startUp{};
  startUp.StartupInfo.cb = sizeof startUp;
  startUp.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  const auto orNowhere = [](HANDLE handle) { return handle == nullptr ? Nowhere() : handle; };
  startUp.StartupInfo.hStdInput = orNowhere(start.Input);
  startUp.StartupInfo.hStdOutput = orNowhere(start.Output);
  startUp.StartupInfo.hStdError = orNowhere(start.Errors);
  std::vector<HANDLE> handed = {startUp.StartupInfo.hStdInput, startUp.StartupInfo.hStdOutput,
                                startUp.StartupInfo.hStdError};
  std::sort(handed.begin(), handed.end());
  handed.erase(std::unique(handed.begin(), handed.end()), handed.end());

  SIZE_T size = 0;
  ::InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
  std::vector<std::byte> room(size);
  startUp.lpAttributeList = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(room.data());
  if (!::InitializeProcThreadAttributeList(startUp.lpAttributeList, 1, 0, &size)) return {};
  ::UpdateProcThreadAttribute(startUp.lpAttributeList, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST,
                              handed.data(), handed.size() * sizeof(HANDLE), nullptr, nullptr);
  const std::wstring program = WideOfPath(start.Program);
  std::wstring line = CommandLine(start), environment = ChangedEnvironment(start);
  PROCESS_INFORMATION started{};
  ::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                   CREATE_NO_WINDOW | CREATE_SUSPENDED | CREATE_UNICODE_ENVIRONMENT |
                       EXTENDED_STARTUPINFO_PRESENT,
                   environment.data(), nullptr, &startUp.StartupInfo, &started);
  ::DeleteProcThreadAttributeList(startUp.lpAttributeList);
  ::SecureZeroMemory(line.data(), line.size() * sizeof(wchar_t));
  thread.reset(started.hThread);
  return OwnHandle(started.hProcess);
}

// Ends what is in it when its last handle is closed: the system closes ours at our end.
OwnHandle JobThatEndsWithUs(bool withAllThatItStarts) {
  OwnHandle job(::CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (!withAllThatItStarts) {
    limits.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_SILENT_BREAKAWAY_OK;
  }
  if (!job || !::SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                         sizeof limits)) {
    return {};
  }
  return job;
}

bool IsEmpty(const OwnHandle& job) {
  JOBOBJECT_BASIC_ACCOUNTING_INFORMATION about{};
  return !::QueryInformationJobObject(job.get(), JobObjectBasicAccountingInformation, &about,
                                      sizeof about, nullptr) ||
         about.ActiveProcesses == 0;
}

}  // namespace

StartedProgram::StartedProgram(const ProgramStart& start) {
  OwnHandle thread;
  job_ = JobThatEndsWithUs(!start.ItsOwnOutliveIt);
  if (job_) process_ = StartHeld(start, thread);
  if (!process_) return;
  if (::AssignProcessToJobObject(job_.get(), process_.get())) {
    ::ResumeThread(thread.get());
  } else {
    ::TerminateProcess(process_.get(), 1);
  }
}

bool StartedProgram::Running() {
  if (!process_) return false;
  if (::WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT) return true;
  End();
  return false;
}

void StartedProgram::End() {
  if (!job_) return;
  ::TerminateJobObject(job_.get(), 1);
  for (int tries = 0; tries < 1000 && !IsEmpty(job_); ++tries) ::Sleep(1);
  job_.reset();
}

unsigned long StartedProgram::ExitCode() const {
  DWORD code = STILL_ACTIVE;
  if (process_) ::GetExitCodeProcess(process_.get(), &code);
  return code;
}

bool StartAlone(const ProgramStart& start) {
  OwnHandle thread;
  const OwnHandle process = StartHeld(start, thread);
  return process && ::ResumeThread(thread.get()) != static_cast<DWORD>(-1);
}

Pipe::Pipe(bool programReads) {
  constexpr DWORD kRoom = 64U << 10U;
  HANDLE reads = nullptr, writes = nullptr;
  if (!::CreatePipe(&reads, &writes, nullptr, kRoom)) return;
  Ours.reset(programReads ? writes : reads);
  Programs.reset(programReads ? reads : writes);
  ::SetHandleInformation(Programs.get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
}

}  // namespace quillbox
