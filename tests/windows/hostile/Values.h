// Hostile arguments of every type but text: numbers, values of all types that exist and of some that do not,
// references to nothing and to themselves, arrays of every shape, and objects, ours and foreign.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/windows/hostile/Arena.h"
#include "tests/windows/hostile/Texts.h"

namespace dlv::hostile {

class Scene;

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
