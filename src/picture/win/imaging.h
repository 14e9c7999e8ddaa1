// The system's imaging component.
#pragma once

#include <windows.h>

#include <wincodec.h>

namespace jotlets {

/// One reference to an object that calls hand out, given up with its owner.
template <typename Interface>
class Com {
 public:
  Com() = default;
  ~Com() {
    if (object_ != nullptr) object_->Release();
  }
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;
  Interface** Out() { return &object_; }
  Interface* operator->() const { return object_; }
  Interface* Get() const { return object_; }

 private:
  Interface* object_ = nullptr;
};

inline bool MakeImaging(Com<IWICImagingFactory>& factory) {
  return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IWICImagingFactory, reinterpret_cast<void**>(factory.Out())));
}

}  // namespace jotlets
