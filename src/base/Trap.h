// Where errors end. A procedure that must not fail towards its caller runs its body in the one
// trap, which reports a run-time error once, with the procedure's location. "Ignore and go on" runs
// statements one by one, each on its own. Both let a stop of the control pass through: after a stop
// nothing that was under way may go on.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>

#include "base/RunTimeError.h"

namespace dlv {

/// Thrown where code finds, on return from the host or from a message loop, that the control was
/// stopped meanwhile. It unwinds everything up to the entry into the control.
class ControlStopped {};

enum class Outcome { Done, Failed };

/// A body without its type: what the routines below take, so that they are compiled once.
class BodyRef {
public:
    template <class Body>
    requires(!std::is_same_v<std::remove_cvref_t<Body>, BodyRef>) BodyRef(Body&& body)
        : body_(const_cast<void*>(static_cast<const void*>(&body))),
          call_([](void* b) { (*static_cast<std::remove_reference_t<Body>*>(b))(); }) {}

    void operator()() const { call_(body_); }

private:
    void* body_;
    void (*call_)(void*);
};

class Trap {
public:
    using Report = std::function<void(const RunTimeError& error, std::string_view location)>;

    explicit Trap(Report report) : report_(std::move(report)) {}

    /// Runs the body; an error is reported under `location` and goes no further. When memory runs
    /// out, that is error 7.
    Outcome Run(std::string_view location, BodyRef body) const;

    /// The same, but what is reported is what `replace` makes of the error. Where `replace` fails
    /// itself, the error is reported as it was.
    Outcome RunReplacing(std::string_view location,
                         const std::function<RunTimeError(const RunTimeError&)>& replace, BodyRef body) const;

private:
    Report report_;
};

/// Runs a statement and ignores its run-time error.
Outcome IgnoreErrors(BodyRef statement);

/// Runs each statement, whatever became of the one before.
template <class... Statements>
void IgnoreAndGoOn(Statements&&... statements) {
    (IgnoreErrors(statements), ...);
}

/// Runs the body and then `after`, which also runs when the body failed; the failure then goes on.
void Finally(BodyRef body, BodyRef after);

enum class Ending { Normal, Stopped };

/// Runs the body of an entry into the control; says whether a stop cut it short. Errors pass.
Ending RunUntilStopped(BodyRef body);

}  // namespace dlv
