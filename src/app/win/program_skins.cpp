#include "app/win/program_skins.h"

#include "data/data_folder.h"
#include "res/resource.h"

namespace jotlets {

void ProgramSkins::Open(TextView dataFolder) {
  folder_ = Text(dataFolder) + Text(kSkinsFolder);
  library_.emplace(SkinFolder{files_, ansi_, log_, folder_},
                   BuiltInSkin{resources_.Bytes(IDR_SKIN_TEXT), resources_.Bytes(IDR_SKIN_SHEET)},
                   BuiltInSkin{resources_.Bytes(IDR_STACK_TEXT), resources_.Bytes(IDR_STACK_SHEET)});
}

}  // namespace jotlets
