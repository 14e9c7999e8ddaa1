#include "editor/win/edit_drop.h"

#include <richedit.h>
#include <shellapi.h>

#include <cwchar>
#include <new>

#include "base/win/ansi_code_page.h"
#include "base/win/disk_files.h"
#include "base/win/wide.h"
#include "data/text_file.h"
#include "editor/win/editor_bounds.h"

namespace jotlets {
namespace {

constexpr std::uint64_t kLargestFile = 1024 * 1024;
constexpr UINT kMaximumFiles = 1000;

FORMATETC MemoryFormat(CLIPFORMAT format) { return {format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL}; }

// The data of a format, for as long as it is looked at.
class DroppedMemory {
 public:
  DroppedMemory(IDataObject& data, CLIPFORMAT format) {
    FORMATETC wanted = MemoryFormat(format);
    if (FAILED(data.GetData(&wanted, &medium_))) medium_ = {};
  }
  ~DroppedMemory() { ReleaseStgMedium(&medium_); }
  DroppedMemory(const DroppedMemory&) = delete;
  DroppedMemory& operator=(const DroppedMemory&) = delete;
  HGLOBAL Memory() const { return medium_.tymed == TYMED_HGLOBAL ? medium_.hGlobal : nullptr; }

 private:
  STGMEDIUM medium_{};
};

Text PlainText(IDataObject& data) {
  const DroppedMemory dropped(data, CF_UNICODETEXT);
  if (dropped.Memory() == nullptr) return {};
  const auto* units = static_cast<const wchar_t*>(GlobalLock(dropped.Memory()));
  if (units == nullptr) return {};
  Text text(FromWide(units, wcsnlen(units, GlobalSize(dropped.Memory()) / sizeof *units)));
  GlobalUnlock(dropped.Memory());
  return text;
}

Text TextOfFile(const Text& path) {
  const DiskFiles files;
  if (!HasExtension(path, u".txt") || files.Size(path) > kLargestFile) return path;
  const FileContent content = files.Read(path);
  if (content.state != FileContent::State::kRead) return path;
  return DecodeTextFile(content.bytes, AnsiCodePage()).text;
}

Text TextOfFiles(IDataObject& data) {
  const DroppedMemory dropped(data, CF_HDROP);
  const auto list = static_cast<HDROP>(dropped.Memory());
  if (list == nullptr) return {};
  const UINT count = std::min(DragQueryFileW(list, 0xFFFFFFFF, nullptr, 0), kMaximumFiles);
  Text text;
  for (UINT i = 0; i < count; ++i) {
    Text path(DragQueryFileW(list, i, nullptr, 0) + 1, u'\0');
    path.resize(DragQueryFileW(list, i, WideBuffer(path), static_cast<UINT>(path.size())));
    if (i > 0) text += u"\r\n";
    text += TextOfFile(path);
  }
  return text;
}

class EditDropTarget final : public ComObject<IDropTarget> {
 public:
  explicit EditDropTarget(HWND edit) : ComObject(IID_IDropTarget), edit_(edit) {}

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    takes_ = !IsReadOnlyEdit(edit_) && (HoldsFiles(*data) || HoldsFormat(*data, CF_UNICODETEXT));
    return DragOver(0, {}, effect);
  }
  HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override {
    *effect = takes_ ? *effect & DROPEFFECT_COPY : DROPEFFECT_NONE;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL at, DWORD* effect) override {
    try {
      const bool done = takes_ && InsertDropped(edit_, *data, {at.x, at.y});
      *effect = done ? DROPEFFECT_COPY : DROPEFFECT_NONE;
      return S_OK;
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  HWND edit_;
  bool takes_ = false;
};

}  // namespace

bool HoldsFormat(IDataObject& data, CLIPFORMAT format) {
  FORMATETC wanted = MemoryFormat(format);
  return data.QueryGetData(&wanted) == S_OK;
}

bool HoldsFiles(IDataObject& data) { return HoldsFormat(data, CF_HDROP); }

bool IsReadOnlyEdit(HWND edit) { return (SendMessageW(edit, EM_GETOPTIONS, 0, 0) & ECO_READONLY) != 0; }

bool InsertDropped(HWND edit, IDataObject& data, Point at) {
  // Of text files at most a megabyte each, else their path; files one below the other.
  const Text text = HoldsFiles(data) ? TextOfFiles(data) : PlainText(data);
  if (text.empty() || IsReadOnlyEdit(edit) || !IsEditable(text, BoundsOfEditor())) return false;
  POINT inside{at.x, at.y};
  ScreenToClient(edit, &inside);
  POINTL point{inside.x, inside.y};
  const auto position =
      static_cast<LONG>(SendMessageW(edit, EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&point)));
  const CHARRANGE caret{position, position};
  SendMessageW(edit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(text)));
  return true;
}

ComPointer<IDropTarget> MakeDropTarget(HWND edit) {
  return ComPointer<IDropTarget>(new EditDropTarget(edit));
}

}  // namespace jotlets
