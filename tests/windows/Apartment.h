// A thread with a COM apartment of its own that does what it is told, and passing objects from one to
// another.
#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "tests/windows/Support.h"

namespace dlv::test {

class Apartment {
public:
    /// `Single` handles messages while it has nothing to do.
    enum class Kind { Single, Multi };

    /// The control's classes are known on its thread.
    explicit Apartment(Kind kind);
    ~Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

    /// Comes back when the work has been done. What is called on objects of the caller's apartment meanwhile
    /// gets through.
    void Do(std::function<void()> work);

private:
    struct Work {
        std::function<void()> body;
        HANDLE done;
    };

    void Run(Kind kind);
    bool DoNext();
    bool Ending();

    std::mutex mutex_;
    std::deque<Work> queue_;
    bool ending_ = false;
    HANDLE wake_;
    HANDLE ended_;
    std::thread thread_;
};

/// An interface on its way to another apartment; it can be taken once there.
class Parcel {
public:
    template <class Interface>
    explicit Parcel(Interface* object) {
        EXPECT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(Interface), object, stream_.GetAddressOf()),
                  S_OK);
    }
    template <class Interface>
    ComPtr<Interface> Take() {
        ComPtr<Interface> taken;
        EXPECT_EQ(CoGetInterfaceAndReleaseStream(stream_.Detach(), IID_PPV_ARGS(&taken)), S_OK);
        return taken;
    }

private:
    ComPtr<IStream> stream_;
};

}  // namespace dlv::test
