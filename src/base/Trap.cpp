#include "base/Trap.h"

#include <new>
#include <optional>

namespace dlv {

namespace {

/// What the body failed with, as a run-time error.
std::optional<RunTimeError> Failure(BodyRef body) {
    try {
        body();
        return std::nullopt;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RunTimeError(kErrorOutOfMemory, "Out of memory");
    } catch (const std::length_error&) {
        return RunTimeError(kErrorOutOfMemory, "Out of memory");
    }
}

}  // namespace

Outcome Trap::Run(std::string_view location, BodyRef body) const {
    const auto failure = Failure(body);
    if (!failure) return Outcome::Done;
    report_(*failure, location);
    return Outcome::Failed;
}

Outcome Trap::RunReplacing(std::string_view location,
                           const std::function<RunTimeError(const RunTimeError&)>& replace,
                           BodyRef body) const {
    const auto failure = Failure(body);
    if (!failure) return Outcome::Done;
    std::optional<RunTimeError> reported;
    if (Failure([&] { reported = replace(*failure); })) reported = failure;
    report_(*reported, location);
    return Outcome::Failed;
}

Outcome IgnoreErrors(BodyRef statement) { return Failure(statement) ? Outcome::Failed : Outcome::Done; }

void Finally(BodyRef body, BodyRef after) {
    try {
        body();
    } catch (...) {
        after();
        throw;
    }
    after();
}

Ending RunUntilStopped(BodyRef body) {
    try {
        body();
        return Ending::Normal;
    } catch (const ControlStopped&) {
        return Ending::Stopped;
    }
}

}  // namespace dlv
