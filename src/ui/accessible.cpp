#include "ui/accessible.h"

#include <initguid.h>

#include <oleacc.h>

#include <algorithm>
#include <utility>

#include "base/win/wide.h"
#include "ui/window.h"

namespace jotlets {
namespace {

HRESULT Give(const Text& text, BSTR* to) {
  *to = nullptr;
  if (text.empty()) return S_FALSE;
  *to = SysAllocStringLen(Wide(text), static_cast<UINT>(text.size()));
  return *to == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT Give(LONG number, VARIANT* to) {
  to->vt = VT_I4;
  to->lVal = number;
  return S_OK;
}

// The child in a direction from another, 0 for none; no child is in any from the window itself.
LONG Neighbour(LONG direction, LONG from, LONG count) {
  switch (direction) {
    case NAVDIR_FIRSTCHILD: return from == CHILDID_SELF ? 1 : 0;
    case NAVDIR_LASTCHILD: return from == CHILDID_SELF ? count : 0;
    case NAVDIR_NEXT:
    case NAVDIR_RIGHT:
    case NAVDIR_DOWN: return from == CHILDID_SELF ? 0 : from + 1;
    case NAVDIR_PREVIOUS:
    case NAVDIR_LEFT:
    case NAVDIR_UP: return from - 1;
    default: return 0;
  }
}

}  // namespace

// Children are counted from 1 in the order of the parts; 0 is the window itself.
class WindowAccessible final : public ComObject<IAccessible> {
 public:
  WindowAccessible(const AccessibleWindow& of, HWND window)
      : ComObject(IID_IAccessible), of_(&of), window_(window) {}

  void End() { of_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return ComObject::QueryInterface(IsEqualIID(id, IID_IDispatch) ? IID_IAccessible : id, object);
  }

  HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
    if (parent == nullptr) return E_POINTER;
    *parent = nullptr;
    if (of_ == nullptr) return CO_E_OBJNOTCONNECTED;
    return AccessibleObjectFromWindow(window_, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                      reinterpret_cast<void**>(parent));
  }

  HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return WithParts([count](const std::vector<AccessiblePart>& parts) {
      *count = static_cast<LONG>(parts.size());
      return S_OK;
    });
  }

  // Only a control of its own is an object of its own.
  HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    return With(child, [object](const AccessiblePart& part) {
      if (part.window == nullptr) return S_FALSE;
      return AccessibleObjectFromWindow(part.window, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                                        reinterpret_cast<void**>(object));
    });
  }

  HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
    return Word(child, name, &AccessiblePart::name);
  }
  HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
    return Word(child, value, &AccessiblePart::value);
  }
  HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* words) override {
    return Word(child, words, &AccessiblePart::description);
  }
  HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* key) override {
    return Word(child, key, &AccessiblePart::key);
  }
  HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
    return Word(child, action, &AccessiblePart::action);
  }
  HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* help) override {
    if (help == nullptr) return E_POINTER;
    *help = nullptr;
    return S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, LONG*) override {
    if (file == nullptr) return E_POINTER;
    *file = nullptr;
    return S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
    return Number(child, role, &AccessiblePart::role);
  }
  HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
    return Number(child, state, &AccessiblePart::state);
  }

  HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override {
    return FirstWith(STATE_SYSTEM_FOCUSED, child);
  }
  HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* child) override {
    return FirstWith(STATE_SYSTEM_SELECTED, child);
  }

  HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
    return With(child, [this, flags](const AccessiblePart& part) {
      if ((flags & (SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) == 0) return E_INVALIDARG;
      return Post(AccessibleWindow::kTakeFocus, part);
    });
  }
  HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override {
    return With(child, [this](const AccessiblePart& part) {
      if (part.action.empty() || (part.state & STATE_SYSTEM_UNAVAILABLE) != 0) return DISP_E_MEMBERNOTFOUND;
      return Post(AccessibleWindow::kDoCommand, part);
    });
  }

  HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                        VARIANT child) override {
    if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) return E_POINTER;
    *left = *top = *width = *height = 0;
    return With(child, [&](const AccessiblePart& part) {
      POINT corner{part.area.left, part.area.top};
      ClientToScreen(window_, &corner);
      *left = corner.x;
      *top = corner.y;
      *width = part.area.Width();
      *height = part.area.Height();
      return S_OK;
    });
  }

  // Parts lie one behind the other in their order, whatever the direction.
  HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT from, VARIANT* to) override {
    if (to == nullptr) return E_POINTER;
    VariantInit(to);
    return WithParts([&](const std::vector<AccessiblePart>& parts) {
      const auto count = static_cast<LONG>(parts.size());
      if (from.vt != VT_I4 || from.lVal < 0 || from.lVal > count) return E_INVALIDARG;
      const LONG target = Neighbour(direction, from.lVal, count);
      return target < 1 || target > count ? S_FALSE : Give(target, to);
    });
  }

  HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* child) override {
    if (child == nullptr) return E_POINTER;
    VariantInit(child);
    return WithParts([&](const std::vector<AccessiblePart>& parts) {
      POINT at{x, y};
      ScreenToClient(window_, &at);
      const Point point{static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
      if (!of_->SelfPart().area.Contains(point)) return S_FALSE;
      LONG hit = CHILDID_SELF;
      for (std::size_t i = 0; i < parts.size(); ++i)
        if ((parts[i].state & STATE_SYSTEM_INVISIBLE) == 0 && parts[i].area.Contains(point))
          hit = static_cast<LONG>(i + 1);
      return Give(hit, child);
    });
  }

  HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
  HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

  // Nobody asks an object of this kind by the names of its members.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }

 private:
  // Nothing that the program throws may reach the client.
  template <typename Do>
  HRESULT WithParts(Do act) noexcept {
    if (of_ == nullptr) return CO_E_OBJNOTCONNECTED;
    try {
      return act(of_->Parts());
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

  template <typename Do>
  HRESULT With(const VARIANT& child, Do act) noexcept {
    return WithParts([&](const std::vector<AccessiblePart>& parts) {
      if (child.vt != VT_I4 || child.lVal < 0) return E_INVALIDARG;
      if (child.lVal == CHILDID_SELF) return act(of_->SelfPart());
      const auto index = static_cast<std::size_t>(child.lVal - 1);
      return index < parts.size() ? act(parts[index]) : E_INVALIDARG;
    });
  }

  HRESULT Word(const VARIANT& child, BSTR* to, Text AccessiblePart::*field) {
    if (to == nullptr) return E_POINTER;
    *to = nullptr;
    return With(child, [to, field](const AccessiblePart& part) { return Give(part.*field, to); });
  }

  HRESULT Number(const VARIANT& child, VARIANT* to, LONG AccessiblePart::*field) {
    if (to == nullptr) return E_POINTER;
    VariantInit(to);
    return With(child, [to, field](const AccessiblePart& part) { return Give(part.*field, to); });
  }

  HRESULT FirstWith(LONG state, VARIANT* child) {
    if (child == nullptr) return E_POINTER;
    VariantInit(child);
    return WithParts([this, state, child](const std::vector<AccessiblePart>& parts) {
      for (std::size_t i = 0; i < parts.size(); ++i)
        if ((parts[i].state & state) != 0) return Give(static_cast<LONG>(i + 1), child);
      return (of_->SelfPart().state & state) != 0 ? Give(CHILDID_SELF, child) : S_FALSE;
    });
  }

  HRESULT Post(AccessibleWindow::Use use, const AccessiblePart& part) {
    return PostMessageW(window_, AccessibleWindow::kUseMessage, use, part.command) != 0 ? S_OK : E_FAIL;
  }

  const AccessibleWindow* of_;
  const HWND window_;
};

Accessibility::Accessibility(const AccessibleWindow& of) : of_(of) {}

Accessibility::~Accessibility() { End(); }

LRESULT Accessibility::OnGetObject(HWND window, WPARAM wParam, LPARAM lParam) {
  if (static_cast<LONG>(lParam) != OBJID_CLIENT) return 0;
  if (object_ == nullptr) {
    window_ = window;
    object_.reset(new WindowAccessible(of_, window));
    toldSelf_ = of_.SelfPart();
    told_ = of_.Parts();
  }
  return LresultFromObject(IID_IAccessible, wParam, object_.get());
}

void Accessibility::TellChanges() {
  if (object_ == nullptr) return;
  const AccessiblePart before = std::exchange(toldSelf_, of_.SelfPart());
  const std::vector<AccessiblePart> former = std::exchange(told_, of_.Parts());
  const auto tell = [this](DWORD event, LONG child) { NotifyWinEvent(event, window_, OBJID_CLIENT, child); };
  const auto compare = [&tell](const AccessiblePart& was, const AccessiblePart& is, LONG child) {
    constexpr LONG kFocus = STATE_SYSTEM_FOCUSED;
    if (was.name != is.name) tell(EVENT_OBJECT_NAMECHANGE, child);
    if (was.value != is.value) tell(EVENT_OBJECT_VALUECHANGE, child);
    if (was.description != is.description) tell(EVENT_OBJECT_DESCRIPTIONCHANGE, child);
    if ((was.state | kFocus) != (is.state | kFocus)) tell(EVENT_OBJECT_STATECHANGE, child);
  };
  compare(before, toldSelf_, CHILDID_SELF);
  const bool same = std::ranges::equal(former, told_, {}, &AccessiblePart::command, &AccessiblePart::command);
  if (!same) return tell(EVENT_OBJECT_REORDER, CHILDID_SELF);
  for (std::size_t i = 0; i < told_.size(); ++i) compare(former[i], told_[i], static_cast<LONG>(i + 1));
}

void Accessibility::TellFocus(HWND window, std::size_t part) {
  NotifyWinEvent(EVENT_OBJECT_FOCUS, window, OBJID_CLIENT, static_cast<LONG>(part + 1));
}

void Accessibility::End() {
  if (object_ != nullptr) object_->End();
  object_.reset();
}

}  // namespace jotlets
