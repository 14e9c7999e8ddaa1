#include "note/win/text_content.h"

#include <algorithm>

#include "data/rtf_bounds.h"
#include "data/rtf_bytes.h"
#include "data/rtf_fields.h"
#include "data/rtf_text.h"
#include "editor/win/edit_text.h"
#include "editor/win/editor_bounds.h"
#include "ui/clipboard.h"

namespace jotlets {
namespace {

// How far into the text the first line that can serve as a title is looked for.
constexpr std::int32_t kTitleSearch = 256;
// Of a text of which only words are shown, in code units.
constexpr std::size_t kMaxBeginning = 64 * 1024;

}  // namespace

bool TextContent::Fits(std::string_view bytes) const { return bytes.starts_with("{\\rtf"); }

TextView TextContent::Load(std::string_view bytes) {
  given_.clear();
  if (!bytes.empty() && !Fits(bytes)) {
    const Text text = FromUtf8(bytes);
    if (IsEditable(text, BoundsOfEditor())) {
      edit_.SetPlainText(text);
    } else {
      edit_.ShowWords(text, watcher_.BeginningNotice());
    }
    return u"no rich text";
  }
  return Show(bytes);
}

void TextContent::LoadWords(std::string_view bytes, TextView notice) {
  given_.clear();
  const Text words = Fits(bytes) ? RtfTextStart(bytes, kMaxBeginning) : FromUtf8(bytes);
  edit_.ShowWords(HarmlessWords(words.substr(0, kMaxBeginning)), notice);
}

// A rich text that the control must not be given is shown by its words.
TextView TextContent::Show(std::string_view rtf) {
  const bool tooLarge = rtf.size() > BEdit::kLargestRtf;
  const TextView trouble =
      tooLarge ? TextView(u"too large, only its beginning is shown") : RtfTrouble(rtf, BoundsOfEditor());
  if (trouble.empty()) {
    const bool flat = !BoundsOfEditor().takesFields && rtf.find("\\field") != std::string_view::npos;
    const bool whole = flat ? edit_.SetRtf(RtfWithoutFields(rtf)) : edit_.SetRtf(rtf);
    return whole && !HoldsMoreThanText(rtf, BoundsOfEditor()) ? TextView() : TextView(u"not read whole");
  }
  edit_.ShowWords(RtfTextStart(rtf, kMaxBeginning), watcher_.BeginningNotice());
  return trouble;
}

ContentBytes TextContent::BytesToSave() const {
  if (!unsaved_) return {};
  if (!given_.empty()) return {{}, given_};
  if (!IsWhole()) return {};
  std::optional<std::string> rtf = edit_.Rtf();
  if (!rtf) return {FileStatus::Failed(u"the text could not be had whole"), std::nullopt};
  return {{}, std::move(rtf)};
}

ContentCopy TextContent::Copy(bool asPlainText) const {
  if (!IsWhole()) {
    return {std::nullopt,
            asPlainText ? TextView(u"the text is too large to be made plain text") : TextView()};
  }
  return {asPlainText ? ToUtf8(PlainText()) : RtfBytes(RichText()), {}};
}

Text TextContent::RichText() const {
  return FromAscii(given_.empty() ? edit_.Rtf().value_or(std::string()) : given_);
}

Text TextContent::TitleWords() const {
  return edit_.TextBetween({edit_.FirstWord(), edit_.FirstWord() + kTitleSearch});
}

bool TextContent::SetPlainText(TextView text) {
  given_.clear();
  if (IsEditable(text, BoundsOfEditor())) {
    edit_.SetPlainText(text);
  } else {
    given_ = RtfOfPlainText(text);
    Show(given_);
  }
  Changed();
  return true;
}

bool TextContent::SetRichText(TextView rtf) {
  given_ = RtfBytes(rtf);
  Show(given_);
  // What the control holds goes on from there.
  if (!edit_.ShowsBeginning()) given_.clear();
  Changed();
  return true;
}

void TextContent::Changed() {
  unsaved_ = true;
  watcher_.OnContentChanged();
}

void TextContent::PasteAtEnd(bool formatted) {
  const CHARRANGE selected = edit_.Selection();
  const LONG end = edit_.Length();
  edit_.Select({end, end});
  Paste(formatted);
  edit_.Select(selected);
}

void TextContent::SetLook(const Look& look) {
  if (edit_.Handle() == nullptr) return;
  const Look& made = edit_.MadeWith();
  if (made.scrollbar != look.scrollbar || made.seeThrough != look.seeThrough) edit_.Recreate(look);
  edit_.SetPaper(look.background, look.ink);
}

void TextContent::SetBackground(Colour colour) {
  if (edit_.Handle() != nullptr) edit_.SetBackground(colour);
  strip_.Repaint();
}

void TextContent::SetPaper(Colour colour) {
  if (edit_.Handle() != nullptr) edit_.SetPaper(colour, edit_.MadeWith().ink);
  strip_.Repaint();
}

void TextContent::SetReadOnly(bool readOnly) {
  if (edit_.Handle() != nullptr) edit_.SetReadOnly(readOnly);
}

void TextContent::Show(bool shown) {
  if (edit_.Handle() != nullptr) edit_.Show(shown);
  strip_.Show(shown);
}

bool TextContent::OwnsKeysOf(HWND window) const {
  return strip_.Handle() != nullptr && IsChild(strip_.Handle(), window) != 0;
}

void TextContent::SetBounds(const Rect& area) {
  area_ = area;
  if (edit_.Handle() == nullptr) return;
  Rect text = area;
  text.bottom = std::max(area.bottom - strip_.Height(), area.top);
  edit_.SetBounds(text);
  strip_.Place({area.left, text.bottom, area.right, area.bottom});
}

ScrollState TextContent::Scrolled(std::int32_t areaHeight) const {
  if (edit_.Handle() == nullptr) return {};
  return {edit_.ScrollPosition().y, areaHeight - strip_.Height(), edit_.TextHeight()};
}

void TextContent::ScrollDownTo(std::int32_t position) {
  edit_.SetScrollPosition({edit_.ScrollPosition().x, position});
}

std::optional<std::int32_t> TextContent::NaturalWidth() {
  if (edit_.Handle() == nullptr) return std::nullopt;
  return jotlets::NaturalWidth(edit_);
}

void TextContent::OnNotify(const NMHDR& header) {
  if (header.hwndFrom != nullptr && header.hwndFrom == edit_.Handle()) edit_.OnNotify(header);
}

void TextContent::PutOnClipboard(HWND owner, bool formatted, const ContentFile& file) const {
  std::string rtf;
  if (formatted) rtf = RtfBytes(IsWhole() ? RichText() : file.richText());
  PutTextOnClipboard(owner, PlainText(), rtf);
}

}  // namespace jotlets
