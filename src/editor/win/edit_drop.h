// What is dropped on an editor, as text: a dropped text itself, of a text file (".txt") its content, of any
// other file or folder its path. The editor is known by its window alone.
#pragma once

#include <windows.h>

#include <ole2.h>

#include "base/geometry.h"
#include "base/text.h"
#include "ui/com_object.h"

namespace jotlets {

bool HoldsFormat(IDataObject& data, CLIPFORMAT format);
bool HoldsFiles(IDataObject& data);
bool IsReadOnlyEdit(HWND edit);

/// Inserts what is dropped at a point of the screen, as one step of undoing; false when there was nothing or
/// the editor is read-only.
bool InsertDropped(HWND edit, IDataObject& data, Point at);

/// A target that copies what is dropped into the editor.
ComPointer<IDropTarget> MakeDropTarget(HWND edit);

}  // namespace jotlets
