#include "dl/support/dl_run.h"

#include "text/form_encoding.h"

namespace quillbox {

std::string SignedIn(const std::string& email, const std::string& password,
                     const std::string& address) {
  return "Email=" + EncodeFormValue(email) + "&Passwd=" + EncodeFormValue(password) + "%#%" +
         address;
}

ChildStart DlRun::Start(const DlStart& start) const {
  ChildStart child{{QUILLBOX_DL_PROGRAM, start.Request + "|" + DataPath() + "|" + LogPath()},
                   start.Environment};
  if (!start.AuthorityFile.empty()) {
    child.Environment.push_back("SSL_CERT_FILE=" + start.AuthorityFile);
  }
  child.Environment.push_back("QUILLBOX_DL_LIMITS=" + start.Limits);
  return child;
}

int DlRun::Run(const DlStart& start) const {
  return ChildProcess(Start(start)).Wait();
}

}  // namespace quillbox
