#include "skin/skin_parts.h"

#include <algorithm>
#include <tuple>

#include "action/action_table.h"
#include "action/shortcuts.h"
#include "base/key_text.h"
#include "res/part_texts.h"
#include "res/resource.h"

namespace jotlets {
namespace {

// In the order in which they are told.
constexpr SkinState kStatesOfNotes[] = {SkinState::kSounding, SkinState::kReadOnly, SkinState::kOnTop,
                                        SkinState::kAlarm,    SkinState::kSleeping, SkinState::kRecurring,
                                        SkinState::kAttached, SkinState::kInStack,  SkinState::kTransmit,
                                        SkinState::kEmail,    SkinState::kGhost,    SkinState::kStang,
                                        SkinState::kUser1,    SkinState::kUser2,    SkinState::kUser3};
constexpr SkinState kStatesOfStacks[] = {SkinState::kOnTop, SkinState::kAlarm};

Rect Inside(const Rect& area, Size window) {
  const Rect cut{std::max(area.left, 0), std::max(area.top, 0), std::min(area.right, window.width),
                 std::min(area.bottom, window.height)};
  return cut.Width() > 0 && cut.Height() > 0 ? cut : Rect{};
}

bool LiesIn(const Rect& bar, const Rect& area) {
  return area != Rect{} && area.top >= bar.top && Overlap(area, bar);
}

bool IsMenu(ActionCode action) {
  return action == kActionOpenJotletContext || action == kActionOpenTextContext;
}

PartRole RoleOf(ActionCode action) {
  if (IsMenu(action)) return PartRole::kMenuButton;
  const ActionSets sets = RowOf(action).sets.what;
  const bool stays =
      sets != ActionSets::kNothing && sets != ActionSets::kStyle && sets != ActionSets::kOpacity;
  return stays ? PartRole::kToggle : PartRole::kButton;
}

class PartsMaker {
 public:
  PartsMaker(const SkinData& skin, const SkinView& view, const PartFacts& facts)
      : skin_(skin), view_(view), facts_(facts) {}

  std::vector<SkinPart> Make() {
    AddTitle();
    AddStates();
    const auto first = static_cast<std::ptrdiff_t>(parts_.size());
    AddButtons();
    std::stable_sort(parts_.begin() + first, parts_.end(), [](const SkinPart& a, const SkinPart& b) {
      return std::tuple(a.invisible, a.area.top, a.area.left) <
             std::tuple(b.invisible, b.area.top, b.area.left);
    });
    AddContent();
    return std::move(parts_);
  }

 private:
  // A skin that has no title bar has a frame above its text.
  void AddTitle() {
    SkinPart title{.role = PartRole::kTitle, .name = facts_.textOf(IDS_PART_TITLE), .value = facts_.title};
    const Rect area = skin_.titlebar ? ResolveCorners(*skin_.titlebar, {view_.window, {}})
                                     : Rect{0, 0, view_.window.width, skin_.top};
    title.area = Inside(area, view_.window);
    title.action = facts_.titleAction;
    title.invisible = title.area == Rect{};
    parts_.push_back(std::move(title));
  }

  void AddStates() {
    const std::vector<ArrangedElement> arranged = ArrangeElements(skin_, view_);
    for (const SkinState state : facts_.states) {
      if (!view_.states.Has(state)) continue;
      SkinPart part{.role = PartRole::kState,
                    .name = facts_.textOf(IDS_PART_STATE + static_cast<std::uint32_t>(state)),
                    .value = facts_.valueOf(state)};
      for (std::size_t i = 0; i < arranged.size(); ++i) {
        const bool glyph =
            skin_.elements[i].kind == ElementKind::kIndicator && arranged[i].picture != nullptr;
        if (glyph && SkinStateFromName(skin_.elements[i].type) == state)
          part.area = Inside(arranged[i].area, view_.window);
      }
      part.invisible = part.area == Rect{};
      parts_.push_back(std::move(part));
    }
  }

  // As the window is, and then as it would be with the focus, under the mouse, or both.
  void AddButtons() {
    SkinView tried = view_;
    AddButtonsOf(tried);
    for (const bool over : {view_.mouseOver, true}) {
      for (const bool focus : {true, false}) {
        tried.focus = focus;
        tried.mouseOver = over;
        AddButtonsOf(tried);
      }
    }
  }

  void AddButtonsOf(const SkinView& tried) {
    for (const SkinElement& element : skin_.elements) {
      const PartUse use = UseOf(element);
      const bool acts = element.action != kActionNone || use != PartUse::kNothing;
      if (element.kind != ElementKind::kButton || !acts || !IsShown(element, tried)) continue;
      const bool known = std::ranges::any_of(parts_, [&](const SkinPart& part) {
        return part.role >= PartRole::kButton && part.action == element.action && part.use == use;
      });
      if (!known) AddButton(element);
    }
  }

  void AddButton(const SkinElement& element) {
    SkinPart part = element.action == kActionNone ? UsePart(UseOf(element)) : ActionPart(element.action);
    part.area = Inside(ElementRect(element, view_), view_.window);
    part.invisible = part.area == Rect{} || !IsShown(element, view_);
    part.atFoot =
        LiesIn(FormatBarArea(skin_, view_), part.area) || LiesIn(AlarmFootArea(skin_, view_), part.area);
    parts_.push_back(std::move(part));
  }

  Text KeyOfLanguage(TextView key) const {
    return TranslatedKey(key, [this](std::size_t word) {
      return facts_.textOf(IDS_KEY_WORD + static_cast<std::uint32_t>(word));
    });
  }

  SkinPart ActionPart(ActionCode action) const {
    const ActionState state = facts_.stateOf(action);
    SkinPart part{.role = RoleOf(action), .name = ActionWords(RowOf(action), facts_.textOf)};
    if (part.name.empty()) part.name = ActionName(action);
    part.key = KeyOfLanguage(ShortcutText(action));
    part.action = action;
    part.pressed = state.checked;
    part.unavailable = !state.enabled;
    return part;
  }

  SkinPart UsePart(PartUse use) const {
    SkinPart part{.use = use};
    if (use == PartUse::kCheckList) {
      part.role = PartRole::kToggle;
      part.name = facts_.textOf(IDS_EDITOR_KEY + static_cast<std::uint32_t>(EditorKey::kCheckList));
      part.key = KeyOfLanguage(ShortcutText(KeyOf(EditorKey::kCheckList)));
      part.pressed = view_.states.Has(SkinState::kCheckList);
    } else {
      part.name = facts_.textOf(use == PartUse::kDismiss ? IDS_PART_DISMISS : IDS_PART_SNOOZE);
      part.key = KeyOfLanguage(use == PartUse::kDismiss ? u"Esc" : u"Shift+Esc");
    }
    return part;
  }

  void AddContent() {
    if (!facts_.content) return;
    const bool picture = *facts_.content == PartRole::kPicture;
    SkinPart part{.role = *facts_.content, .name = facts_.textOf(picture ? IDS_PART_PICTURE : IDS_PART_TEXT)};
    part.area = Inside(TextArea(skin_, view_), view_.window);
    part.invisible = part.area == Rect{};
    parts_.push_back(std::move(part));
  }

  const SkinData& skin_;
  const SkinView& view_;
  const PartFacts& facts_;
  std::vector<SkinPart> parts_;
};

}  // namespace

PartUse UseOf(const SkinElement& button) {
  if (button.kind != ElementKind::kButton || button.action != kActionNone) return PartUse::kNothing;
  if (EqualIgnoreCase(button.type, u"checklist")) return PartUse::kCheckList;
  if (EqualIgnoreCase(button.type, u"dismiss")) return PartUse::kDismiss;
  return EqualIgnoreCase(button.type, u"snooze") ? PartUse::kSnooze : PartUse::kNothing;
}

std::span<const SkinState> StatesOfNotes() { return kStatesOfNotes; }
std::span<const SkinState> StatesOfStacks() { return kStatesOfStacks; }

std::vector<SkinPart> PartsOf(const SkinData& skin, const SkinView& view, const PartFacts& facts) {
  return PartsMaker(skin, view, facts).Make();
}

// The title lies under the buttons on it.
std::optional<std::size_t> PartAt(std::span<const SkinPart> parts, Point at) {
  std::optional<std::size_t> found;
  for (std::size_t i = 0; i < parts.size(); ++i)
    if (!parts[i].invisible && parts[i].area.Contains(at)) found = i;
  return found;
}

}  // namespace jotlets
