#include "app/win/commands/addressed_jotlet.h"

#include "editor/text_style.h"
#include "editor/win/edit_text.h"

namespace jotlets {

JotletData& AddressedJotlet::Record() { return jotlet_.Record(); }
Text AddressedJotlet::PlainText() { return jotlet_.Content().PlainText(); }
Text AddressedJotlet::Rtf() { return tools_.contents.RichTextOf(jotlet_.StoredRecord()); }
std::int64_t AddressedJotlet::WindowNumber() { return reinterpret_cast<std::intptr_t>(jotlet_.Handle()); }

// The skin that is shown: the one that a record names may not be there.
Text AddressedJotlet::SkinPath() {
  const Text& name = jotlet_.StoredRecord().skin;
  if (name.empty()) return {};
  const LoadedSkin& skin = jotlet_.Skin();
  return skin.path.empty() ? name : skin.path;
}

void AddressedJotlet::SetTitle(TextView title) { jotlet_.SetTitle(title); }
void AddressedJotlet::SetUserString(TextView words) { jotlet_.SetUserString(words); }
void AddressedJotlet::SetColour(Colour colour) { jotlet_.SetColour(colour); }
void AddressedJotlet::SetOnTop(bool onTop) { jotlet_.SetOnTop(onTop); }
void AddressedJotlet::SetGhost(bool ghost) { jotlet_.SetGhost(ghost); }
void AddressedJotlet::SetHidden(bool hidden) { jotlet_.SetHidden(hidden); }
void AddressedJotlet::SetTransparency(std::int32_t percent) { jotlet_.SetTransparency(percent); }
void AddressedJotlet::MoveTo(Point position) { jotlet_.MoveTo(position); }

bool AddressedJotlet::SetRolled(bool rolled) { return jotlet_.SetRolled(rolled); }
Point AddressedJotlet::ShownAt() { return jotlet_.SettledBounds().TopLeft(); }

bool AddressedJotlet::SetPlainText(TextView text) { return jotlet_.Content().SetPlainText(text); }
bool AddressedJotlet::SetRtf(TextView rtf) { return jotlet_.Content().SetRichText(rtf); }

bool AddressedJotlet::SetSkin(TextView path) { return tools_.skins.SetOfNote(jotlet_, path); }

bool AddressedJotlet::ApplyStyle(TextView name) {
  const std::size_t number = FindTextStyle(tools_.options, name);
  BEdit* edit = jotlet_.Editor();
  if (number >= kTextStyles || edit == nullptr) return false;
  const CHARRANGE selected = edit->Selection();
  SelectAll(*edit);
  const bool done =
      DoEditAction(*edit, static_cast<ActionCode>(kActionApplyStyle0 + static_cast<int>(number)),
                   tools_.notes.EditingContext());
  edit->Select(selected);
  return done;
}

bool AddressedJotlet::SetPicture(TextView path) { return tools_.contents.SetPicture(jotlet_, path); }

void AddressedJotlet::CopyContent(bool formatted) {
  const JotletData& record = jotlet_.StoredRecord();
  jotlet_.CopyContent(
      tools_.window.Handle(), formatted,
      {[&] { return tools_.contents.BytesOf(record); }, [&] { return tools_.contents.RichTextOf(record); }});
}

void AddressedJotlet::PasteAtEnd(bool formatted) { jotlet_.Content().PasteAtEnd(formatted); }

bool AddressedJotlet::SaveContent() { return tools_.desk.SaveContent(jotlet_.StoredRecord().id); }

}  // namespace jotlets
