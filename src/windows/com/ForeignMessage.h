// A message object that is not ours, such as a class written in a script: read through the members that our
// own messages have. Tables are kept as they are read, so that each field is asked for once.
#pragma once

#include "windows/com/PlainWindows.h"

#include <memory>

#include "webdata/MessageSource.h"
#include "windows/com/LateBound.h"

namespace dlv {

class ForeignMessage final : public MessageSource {
public:
    /// Whether an object has the members that are read of a message.
    static bool IsLike(IDispatch* object);

    explicit ForeignMessage(IDispatch* object) : object_(object) {}

    std::string Name() const override;
    std::string Property(std::string_view key) const override;
    std::shared_ptr<const RowTable> Table(std::string_view name) const override;

private:
    LateBound object_;
};

}  // namespace dlv
