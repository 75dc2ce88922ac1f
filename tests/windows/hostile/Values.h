// Hostile arguments of every type but text: numbers, values of all types that exist and of some that do not,
// references to nothing and to themselves, arrays of every shape, and objects, ours and foreign.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <wrl/client.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "tests/windows/hostile/Texts.h"

namespace dlv::hostile {

class Scene;

/// What one call is given: texts, values, arrays and objects, each in a place of its own that a callee may
/// change, all freed when the arena ends.
class Arena {
public:
    Arena() = default;
    ~Arena() {
        for (SAFEARRAY* array : locked_) SafeArrayUnlock(array);
        // A value of a type that does not exist owns nothing; the system refuses to clear it.
        for (VARIANT& value : values_) VariantClear(&value);
        for (SAFEARRAY* array : arrays_) SafeArrayDestroy(array);
        for (const BSTR text : texts_) SysFreeString(text);
    }
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Takes over what it is given.
    BSTR* Text(BSTR text) { return &texts_.emplace_back(text); }
    SAFEARRAY** Array(SAFEARRAY* array) { return &arrays_.emplace_back(array); }
    /// Takes a reference of its own.
    IDispatch** Object(IDispatch* object) { return objects_.emplace_back(object).GetAddressOf(); }
    /// An empty value; what it holds at the end is cleared.
    VARIANT* Value() { return &values_.emplace_back(VARIANT{}); }
    /// Plain memory for what a pointer points to.
    void* Plain(std::uint64_t value) { return plain_.emplace_back(Block{value}).bits; }
    /// Locks the array until the arena ends.
    void Lock(SAFEARRAY* array) {
        if (array != nullptr && SUCCEEDED(SafeArrayLock(array))) locked_.push_back(array);
    }

private:
    struct Block {
        alignas(16) std::uint64_t bits[4];
    };

    std::deque<BSTR> texts_;
    std::deque<VARIANT> values_;
    std::deque<SAFEARRAY*> arrays_;
    std::deque<SAFEARRAY*> locked_;
    std::deque<Microsoft::WRL::ComPtr<IDispatch>> objects_;
    std::deque<Block> plain_;
};

/// Where a value is made: who frees it, who plays along, and what it depends on.
struct Making {
    Arena& arena;
    Scene& scene;
    Random& random;
};

struct Number {
    std::string name;
    LONG value;
};
struct Value {
    std::string name;
    /// Fills an empty value, which clears itself; what a reference points to belongs to the arena.
    std::function<void(VARIANT&, Making&)> make;
};
struct Array {
    std::string name;
    /// A new array that the caller destroys; may be null, and locked until the arena ends.
    std::function<SAFEARRAY*(Making&)> make;
};
struct Object {
    std::string name;
    std::function<Microsoft::WRL::ComPtr<IDispatch>(Making&)> make;
};

const std::vector<Number>& Numbers();
const std::vector<Value>& Values();
const std::vector<Array>& Arrays();
const std::vector<Object>& Objects();

}  // namespace dlv::hostile
