// COM objects of the program's own, and owners of references to any.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

namespace jotlets {

struct ComDeleter {
  void operator()(IUnknown* object) const { object->Release(); }
};
/// One reference, given up with its owner.
template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ComDeleter>;

// Interfaces have no virtual destructor: their objects are destroyed by their own last `Release`.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// The `IUnknown` part of an object with one interface; it is made by `new` and holds one reference then.
template <typename Interface>
class ComObject : public Interface {
 public:
  explicit ComObject(const IID& id) : id_(id) {}
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, id_)) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<Interface*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~ComObject() = default;

 private:
  const IID id_;
  ULONG references_ = 1;
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

}  // namespace jotlets
