// Knows what is being called, and tells it when the process crashes or a call does not come back.
#pragma once

#include <windows.h>

#include <string>

namespace dlv::hostile {

inline constexpr int kHung = 42;
inline constexpr int kCrashed = 43;

/// The call under way. The texts outlive the call.
struct CallNote {
    const char* object = "";
    const char* member = "";
    const char* way = "";
    const char* values[4] = {};
};

/// Notes calls that are nested inside each other.
class NoteScope {
public:
    explicit NoteScope(const CallNote& note);
    ~NoteScope();
    NoteScope(const NoteScope&) = delete;
    NoteScope& operator=(const NoteScope&) = delete;
    /// Names the value of a parameter; those beyond the fourth are left out.
    static void Value(const char* name);
};

/// What is noted, from the outermost call inwards.
std::string CallsUnderWay();
/// The sequence and step that the next calls belong to.
void NoteSequence(const std::string& sequence);
void NoteStep(std::size_t step);

/// From now on a crash ends the process with kCrashed, and a step that takes longer than that with kHung;
/// both tell the calls under way.
void StartWatch(DWORD milliseconds);

}  // namespace dlv::hostile
