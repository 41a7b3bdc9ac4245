#include "tray/tray_icon.h"

#include "platform/tray.h"

namespace quillbox {
namespace {

constexpr std::uint32_t kRecordSize = 488;        // what a host expects in cbSize
constexpr std::uint32_t kMouseMoveMessage = 512;  // the code of a mouse move
constexpr std::uint32_t kBalloonMilliseconds = 30000;
constexpr std::string_view kBalloonTitle = "Quillbox";

}  // namespace

bool AddTrayIcon(const ProgramContext& program) {
  TrayIconRecord& record = program.State.TrayIconRecord;
  record.cbSize = kRecordSize;
  record.uID = 1;
  record.uFlags = kNifMessage | kNifIcon | kNifTip | kNifInfo;
  record.uCallbackMessage = kMouseMoveMessage;
  record.hIcon = program.State.IconImage;
  record.dwState = 0;
  record.dwStateMask = 0;
  record.uTimeout = kBalloonMilliseconds;
  program.State.TooltipText = "Quillbox";
  program.Host.Tray.TooltipChanged(program.State.TooltipText);
  return program.Host.Tray.Apply(TrayOperation::kAdd, record);
}

void ShowBalloon(const ProgramContext& program, std::string_view text) {
  TrayIconRecord& record = program.State.TrayIconRecord;
  record.uFlags = kNifInfo;
  record.szTip = text;
  record.szInfoTitle = kBalloonTitle;
  record.szInfo = text;
  record.uTimeout = kBalloonMilliseconds;
  program.Host.Tray.Apply(TrayOperation::kModify, record);
}

void SetTooltipText(const ProgramContext& program, const std::string& text) {
  TrayIconRecord& record = program.State.TrayIconRecord;
  record.uFlags = kNifMessage | kNifIcon | kNifTip;
  record.szTip = "";
  program.State.TooltipText = text;
  program.Host.Tray.TooltipChanged(text);
  program.Host.Tray.Apply(TrayOperation::kModify, record);
}

void UpdateTrayIcon(const ProgramContext& program) {
  TrayIconRecord& record = program.State.TrayIconRecord;
  record.uFlags = kNifMessage | kNifIcon | kNifTip;
  record.hIcon = program.State.IconImage;
  program.Host.Tray.Apply(TrayOperation::kModify, record);
}

void RemoveTrayIcon(const ProgramContext& program) {
  program.Host.Tray.Apply(TrayOperation::kDelete, program.State.TrayIconRecord);
}

}  // namespace quillbox
