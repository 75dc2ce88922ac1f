// What one sequence of calls plays with: a control, in a window or without, a sink that answers its events
// badly, and objects of every class; and the mischief that sinks and objects make while they are called.
#pragma once

#include "tests/windows/Support.h"
#include "tests/windows/hostile/Members.h"
#include "tests/windows/hostile/Values.h"

namespace dlv::hostile {

using Microsoft::WRL::ComPtr;

class Scene {
public:
    /// A call of any member with any arguments, made from inside another.
    using Reentry = std::function<void(Random&)>;

    Scene(const std::vector<Interface>& interfaces, bool inWindow);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    const std::vector<Interface>& Interfaces() const { return interfaces_; }
    void OnReentry(Reentry reentry) { reentry_ = std::move(reentry); }

    /// The control; null while a sink or an object has released it.
    ComPtr<IDispatch> Control() const { return viewer_; }
    /// Whether the control is gone or was stopped, as its answers tell.
    bool IsStopped() const;
    /// Puts a new control in its place, and starts it up; not inside a call.
    void RenewControl();
    /// An object with the interface; null when there is none at the moment.
    ComPtr<IDispatch> ObjectOf(std::size_t index, Random& random);
    /// Takes an object that a call gave back into the play.
    void Keep(IDispatch* object, Random& random);
    ComPtr<IDispatch> NewMessage(int figure) const;

    /// Whatever a host must not do inside a call: does it, unless calls are nested deep already.
    void MakeMischief(Random& random);
    /// Answers an event of the control; `record` is its one argument.
    HRESULT AnswerEvent(VARIANT& record);

    /// Once there is peace nobody makes mischief, and foreign objects know nothing.
    bool IsPeaceful() const { return peaceful_; }
    /// Makes peace. What is wrong with the control when a good host starts it up, or goes on with it, and
    /// sends messages; empty when it works, or was stopped.
    std::string WhatFails();
    /// For what must live as long as the scene.
    Arena& LongLived() { return longLived_; }

private:
    class Sink;

    /// The calls of a good host up to the first message.
    HRESULT StartUp();
    std::string SendAndWatch(int figure);
    void ReleaseControl();
    void SpoilRecord(VARIANT& record);

    static constexpr int kDeepest = 3;
    static constexpr std::size_t kMostObjects = 3;

    const std::vector<Interface>& interfaces_;
    Arena longLived_;
    std::vector<std::vector<ComPtr<IDispatch>>> objects_;
    Reentry reentry_;
    Random events_{1};
    bool peaceful_ = false;
    int depth_ = 0;
    const bool inWindow_;
    std::optional<test::HostWindow> window_;
    ComPtr<Sink> sink_;
    ComPtr<_DLViewer> viewer_;
    std::optional<container::Container> container_;
};

}  // namespace dlv::hostile
