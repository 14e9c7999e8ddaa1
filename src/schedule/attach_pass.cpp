#include "schedule/attach_pass.h"

#include "note/placement.h"

namespace jotlets {
namespace {

bool MeetsRequirements(const Attachment& attachment, const WindowFacts& window) {
  return (!attachment.onlyVisible || !window.minimised) && (!attachment.onlyFocus || window.foreground);
}

// One text for everything that decides what a record matches. The lengths keep two pairs of patterns apart
// that would join to the same text.
Text RuleOf(const Attachment& attachment) {
  Text rule = IntText(static_cast<std::int64_t>(attachment.title.size()));
  rule.push_back(attachment.onlyFocus ? u'F' : u'-');
  rule.push_back(attachment.onlyVisible ? u'V' : u'-');
  return rule.append(attachment.title).append(attachment.className);
}

std::vector<Text> Folded(std::span<const WindowFacts> windows, Text WindowFacts::*text) {
  std::vector<Text> folded;
  folded.reserve(windows.size());
  for (const WindowFacts& window : windows) {
    folded.push_back(FoldCase(TextView(window.*text).substr(0, kMaxWindowText)));
  }
  return folded;
}

// The alarm of a waiting note; `now` in seconds since 1970 UTC.
bool IsAlarmDueBy(const JotletData& record, std::int32_t now) {
  return record.alarm != kNone && record.alarm <= now;
}

}  // namespace

AttachMatcher::AttachMatcher(std::span<const WindowFacts> windows)
    : windows_(windows),
      titles_(Folded(windows, &WindowFacts::title)),
      classes_(Folded(windows, &WindowFacts::className)) {}

const AttachMatcher::Hits& AttachMatcher::WithText(std::unordered_map<Text, Hits>& known,
                                                   const std::vector<Text>& folded, const Text& pattern) {
  const auto [at, fresh] = known.try_emplace(pattern);
  if (fresh) {
    const TextPattern wanted(pattern);
    at->second.reserve(folded.size());
    for (const Text& text : folded) at->second.push_back(wanted.MatchesFolded(text));
  }
  return at->second;
}

const AttachMatch& AttachMatcher::Find(const Attachment& attachment) {
  const auto [at, fresh] = byRule_.try_emplace(RuleOf(attachment));
  AttachMatch& match = at->second;
  if (!fresh) return match;
  const Hits& titles = WithText(byTitle_, titles_, attachment.title);
  const Hits& classes = WithText(byClass_, classes_, attachment.className);
  for (std::size_t index = 0; index < windows_.size(); ++index) {
    const WindowFacts& window = windows_[index];
    if (!titles[index] || !classes[index] || !MeetsRequirements(attachment, window)) continue;
    match.any = true;
    if (!window.visible) continue;
    if (!match.target) match.target = index;
    match.active = match.active || window.foreground;
  }
  return match;
}

std::optional<Point> AttachedPosition(const Attachment& attachment, const Rect& target) {
  if (attachment.posType != 1) return std::nullopt;
  return Point{Saturated(std::int64_t{target.left} + attachment.posX),
               Saturated(std::int64_t{target.top} + attachment.posY)};
}

bool IsTargetBehind(const Attachment& attachment, AttachMatcher& windows) {
  Attachment plain;
  plain.title = attachment.title;
  plain.className = attachment.className;
  const AttachMatch& match = windows.Find(plain);
  return match.target && !match.active;
}

void HoldToTarget(Attachment& attachment, Point position, const Rect& target) {
  attachment.posX = Saturated(std::int64_t{position.x} - target.left);
  attachment.posY = Saturated(std::int64_t{position.y} - target.top);
}

AttachDecision DecideAttachPass(std::span<const JotletData* const> waiting,
                                std::span<const AttachedNote> desktop, AttachMatcher& windows,
                                const Rect& screen, std::int32_t now) {
  AttachDecision decision;
  for (std::size_t index = 0; index < waiting.size(); ++index) {
    const JotletData& record = *waiting[index];
    const AttachMatch& match = windows.Find(record.attachment);
    const bool alarmDue = IsAlarmDueBy(record, now);
    if (!match.target && !alarmDue) continue;
    std::optional<Point> position;
    if (match.target) position = AttachedPosition(record.attachment, windows.Window(*match.target).bounds);
    decision.arrivals.push_back({index, position, alarmDue});
  }
  for (std::size_t index = 0; index < desktop.size(); ++index) {
    const AttachedNote& note = desktop[index];
    const AttachMatch& match = windows.Find(note.record->attachment);
    if (match.target && !note.dragged) {
      auto to = AttachedPosition(note.record->attachment, windows.Window(*match.target).bounds);
      if (to) to = RescuedPosition(*to, screen);
      if (to && *to != note.position) decision.moves.push_back({index, *to});
    }
    if (note.alarmWaits && !IsTargetBehind(note.record->attachment, windows))
      decision.alarms.push_back(index);
    const bool held = note.dragged || note.alarmSounds || note.alarmWaits;
    if (!match.any && !held) decision.departs.push_back(index);
  }
  return decision;
}

}  // namespace jotlets
