#include "action/action_state.h"

#include "action/action_table.h"

namespace jotlets {
namespace {

bool HasWhatItNeeds(ActionNeeds needs, const ActionFacts& facts) {
  switch (needs) {
    case ActionNeeds::kNothing: return true;
    case ActionNeeds::kFreeSkin: return !facts.skinFixed;
    case ActionNeeds::kStack: return facts.inStack;
    case ActionNeeds::kText: return !facts.image;
    case ActionNeeds::kPicture: return facts.image;
    case ActionNeeds::kSelection: return facts.edit.hasSelection;
    case ActionNeeds::kCopyable: return facts.image || facts.edit.hasSelection;
    case ActionNeeds::kClipboard: return facts.edit.canPaste;
    case ActionNeeds::kUndoStep: return facts.edit.canUndo;
    case ActionNeeds::kRedoStep: return facts.edit.canRedo;
  }
  return false;
}

bool IsUnsetStyle(const ActionSetting& sets, const ActionFacts& facts) {
  const auto number = static_cast<std::size_t>(sets.value);
  return sets.what == ActionSets::kStyle && number < facts.styles.size() && facts.styles[number].empty();
}

bool IsEnabled(const NoteAction& row, const ActionFacts& facts) {
  if (IsUnsetStyle(row.sets, facts)) return false;
  const bool refused = facts.readOnly && row.onText != ActionOnText::kKeeps;
  return row.by != ActionBy::kNobody && !refused && HasWhatItNeeds(row.needs, facts);
}

// Whether paragraphs that agree have the value of a command.
template <typename Kind>
bool IsOf(const ActionSetting& setting, std::optional<Kind> kind) {
  return kind && setting.value == static_cast<std::int32_t>(*kind);
}

bool IsChecked(const ActionSetting& sets, const ActionFacts& facts) {
  switch (sets.what) {
    case ActionSets::kNothing:
    case ActionSets::kStyle: return false;
    case ActionSets::kOnTop: return facts.onTop;
    case ActionSets::kRolled: return facts.rolled;
    case ActionSets::kLocked: return facts.readOnly;
    case ActionSets::kUser1: return facts.user1;
    case ActionSets::kUser2: return facts.user2;
    case ActionSets::kUser3: return facts.user3;
    case ActionSets::kStang: return facts.stang;
    case ActionSets::kBold: return facts.edit.bold;
    case ActionSets::kItalic: return facts.edit.italic;
    case ActionSets::kUnderline: return facts.edit.underline;
    case ActionSets::kStrikethrough: return facts.edit.strikethrough;
    case ActionSets::kRightToLeft: return facts.edit.rtl;
    case ActionSets::kBulletList: return facts.edit.bullets == Bullets::kNormal;
    case ActionSets::kAlignment: return IsOf(sets, facts.edit.alignment);
    // A check list is a list, though one of another kind.
    case ActionSets::kBullets: return IsOf(sets, facts.edit.bullets) && !facts.edit.checkList;
    case ActionSets::kHighlight: return IsOf(sets, facts.edit.highlight);
    case ActionSets::kTool: return sets.value == facts.tool;
    case ActionSets::kPenWidth: return sets.value == facts.penWidth;
    case ActionSets::kZoom: return facts.image && facts.zoom == sets.value;
    case ActionSets::kOpacity: return sets.value == facts.transparency;
  }
  return false;
}

}  // namespace

ActionState StateOf(ActionCode action, const ActionFacts& facts) {
  const NoteAction& row = RowOf(action);
  return {IsEnabled(row, facts), IsChecked(row.sets, facts)};
}

}  // namespace jotlets
