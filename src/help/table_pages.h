// The pages of docs/ that are made from tables: the keys and the menus.
#pragma once

#include "help/resource_texts.h"

namespace jotlets {

/// Every key with what it does, the hot keys as they are before they are changed.
Text KeysPage(const ResourceTexts& texts);

/// Every entry of every menu that is a command, with its key and its name in skins.
Text MenusPage(const ResourceTexts& texts);

}  // namespace jotlets
