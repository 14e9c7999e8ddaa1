#include "editor/win/edit_objects.h"

#include <array>
#include <new>

#include "editor/win/edit_drop.h"
#include "ui/window.h"

namespace jotlets {
namespace {

constexpr IID kCallbackId = {0x00020D03, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

}  // namespace

EditObjects::EditObjects(HWND edit) : ComObject(kCallbackId), edit_(edit) {}

ComPointer<EditObjects> EditObjects::Guard(HWND edit) {
  ComPointer<EditObjects> guard(new EditObjects(edit));
  SendMessageW(edit, EM_SETOLECALLBACK, 0,
               reinterpret_cast<LPARAM>(static_cast<IRichEditOleCallback*>(guard.get())));
  guard->AcceptDrops(edit);
  return guard;
}

void EditObjects::AcceptDrops(HWND edit) {
  const ComPointer<IDropTarget> target = MakeDropTarget(edit);
  // Fails where the control takes drops itself; it asks `QueryAcceptData` then.
  ownDrops_ = SUCCEEDED(RegisterDragDrop(edit, target.get()));
}

void EditObjects::StopDrops(HWND edit) {
  if (ownDrops_) RevokeDragDrop(edit);
  ownDrops_ = false;
}

// Without a storage no object can come into being.
HRESULT EditObjects::GetNewStorage(LPSTORAGE*) {
  refused_ = true;
  return E_NOTIMPL;
}

HRESULT EditObjects::QueryInsertObject(LPCLSID, LPSTORAGE, LONG) {
  refused_ = true;
  return E_ACCESSDENIED;
}

HRESULT EditObjects::QueryAcceptData(LPDATAOBJECT data, CLIPFORMAT* format, DWORD operation, BOOL really,
                                     HGLOBAL) {
  try {
    if (operation == RECO_DROP && IsReadOnlyEdit(edit_)) return E_ACCESSDENIED;
    if (operation == RECO_DROP && HoldsFiles(*data)) {
      // A success other than S_OK tells the control that nothing is left for it to do.
      if (really) InsertDropped(edit_, *data, MousePosition());
      return S_FALSE;
    }
    const CLIPFORMAT rich = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"Rich Text Format"));
    for (const CLIPFORMAT taken : std::array<CLIPFORMAT, 3>{rich, CF_UNICODETEXT, CF_TEXT}) {
      if ((*format != 0 && *format != taken) || !HoldsFormat(*data, taken)) continue;
      *format = taken;
      return S_OK;
    }
    return DV_E_FORMATETC;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

HRESULT EditObjects::GetInPlaceContext(LPOLEINPLACEFRAME*, LPOLEINPLACEUIWINDOW*, LPOLEINPLACEFRAMEINFO) {
  return E_NOTIMPL;
}
HRESULT EditObjects::ShowContainerUI(BOOL) { return E_NOTIMPL; }
HRESULT EditObjects::DeleteObject(LPOLEOBJECT) { return S_OK; }
HRESULT EditObjects::ContextSensitiveHelp(BOOL) { return E_NOTIMPL; }
HRESULT EditObjects::GetClipboardData(CHARRANGE*, DWORD, LPDATAOBJECT*) { return E_NOTIMPL; }
HRESULT EditObjects::GetDragDropEffect(BOOL, DWORD, LPDWORD) { return S_OK; }
HRESULT EditObjects::GetContextMenu(WORD, LPOLEOBJECT, CHARRANGE*, HMENU*) { return E_NOTIMPL; }

}  // namespace jotlets
