// Makes single calls: through a member's slot or late bound, with good arguments but for the hostile ones, or
// with late-bound arguments that are wrong as a whole.
#pragma once

#include "tests/windows/hostile/Scene.h"

namespace dlv::hostile {

/// A late-bound call in the making.
struct LateCall {
    explicit LateCall(const Member& member);

    DISPID id;
    IID iid = IID_NULL;
    LCID locale = LOCALE_USER_DEFAULT;
    WORD flags = DISPATCH_METHOD;
    /// From last to first; what they hold is somebody else's.
    std::vector<VARIANT> arguments;
    std::vector<DISPID> names;
    /// How many names the call says that it has.
    UINT nameCount = 0;
    bool withoutParameters = false;
    bool withoutArguments = false;
    bool withoutNames = false;
    bool withoutResult = false;
    bool withoutException = false;
    bool withoutPlace = false;
};

/// A way in which such a call can be wrong as a whole: counts, names, flags, ids and missing pointers.
struct LateShape {
    const char* name;
    std::function<void(LateCall&)> spoil;
};

const std::vector<LateShape>& LateShapes();

/// Plants a fault for the caller to notice: from now on it happens whenever DLVParams.BUID is put by its slot
/// to "#". False when there is no fault of that name.
bool PlantFault(const std::string& name);

enum class Way { Slot, Late };

/// A value for each parameter: an index into the list of hostile values for its type, or `kGood`, or `kAny`
/// for one by chance.
inline constexpr std::size_t kGood = static_cast<std::size_t>(-1);
inline constexpr std::size_t kAny = static_cast<std::size_t>(-2);
using Choice = std::vector<std::size_t>;

class Caller {
public:
    explicit Caller(Scene& scene) : scene_(scene) {}

    /// How many hostile values there are for a parameter.
    static std::size_t ValuesFor(const Parameter& parameter, Way way);

    /// A late-bound call may be wrong as a whole, too.
    void Call(std::size_t index, const Member& member, Way way, const Choice& choice, Random& random,
              const LateShape* shape = nullptr);
    /// One of the questions that late-bound callers ask before they call.
    void Ask(std::size_t index, Random& random);
    /// Anything, by chance.
    void CallAny(Random& random);

    /// How many calls all callers have made.
    static long Calls() { return calls_; }
    /// What was wrong with the answer to a call; empty when nothing was.
    const std::string& Wrong() const { return wrong_; }

private:
    void ThroughSlot(IDispatch& object, const Interface& owner, const Member& member, const Choice& choice,
                     Random& random);
    void Invoke(IDispatch& object, LateCall& late, Random& random);
    void TakeResult(VARTYPE type, HRESULT answer, void* result, Random& random);
    void Judge(HRESULT answer);
    void Blame(const char* what);

    static inline long calls_ = 0;
    Scene& scene_;
    std::string wrong_;
};

}  // namespace dlv::hostile
