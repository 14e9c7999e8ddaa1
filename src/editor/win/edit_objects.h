// What comes into an editor from other programs by way of OLE: text and files are taken, objects never.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <ole2.h>
#include <richole.h>

#include "ui/com_object.h"

namespace jotlets {

/// The guard at an editor's door. It refuses every embedded object, in the clipboard, in what is dropped and
/// in rich texts that are read.
class EditObjects final : public ComObject<IRichEditOleCallback> {
 public:
  /// Puts a guard before a rich edit control, and takes drops there where the control does not do so itself:
  /// of a text its plain form, of files what dropping them inserts. The thread has called
  /// OleInitialize.
  static ComPointer<EditObjects> Guard(HWND edit);

  void AcceptDrops(HWND edit);
  /// To be called before the control goes.
  void StopDrops(HWND edit);

  /// Whether an object has been refused since it was last forgotten.
  bool HasRefused() const { return refused_; }
  void ForgetRefused() { refused_ = false; }

  HRESULT STDMETHODCALLTYPE GetNewStorage(LPSTORAGE* storage) override;
  HRESULT STDMETHODCALLTYPE GetInPlaceContext(LPOLEINPLACEFRAME* frame, LPOLEINPLACEUIWINDOW* document,
                                              LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE ShowContainerUI(BOOL show) override;
  HRESULT STDMETHODCALLTYPE QueryInsertObject(LPCLSID kind, LPSTORAGE storage, LONG position) override;
  HRESULT STDMETHODCALLTYPE DeleteObject(LPOLEOBJECT object) override;
  HRESULT STDMETHODCALLTYPE QueryAcceptData(LPDATAOBJECT data, CLIPFORMAT* format, DWORD operation,
                                            BOOL really, HGLOBAL picture) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) override;
  HRESULT STDMETHODCALLTYPE GetClipboardData(CHARRANGE* range, DWORD operation, LPDATAOBJECT* data) override;
  HRESULT STDMETHODCALLTYPE GetDragDropEffect(BOOL drag, DWORD keys, LPDWORD effect) override;
  HRESULT STDMETHODCALLTYPE GetContextMenu(WORD selection, LPOLEOBJECT object, CHARRANGE* range,
                                           HMENU* menu) override;

 private:
  explicit EditObjects(HWND edit);

  HWND edit_;
  bool refused_ = false;
  bool ownDrops_ = false;
};

}  // namespace jotlets
