// What the data controller reads of a host's message, whoever made the object: our own message
// class serves it directly, a foreign late-bound object through an adapter.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "webdata/RowTable.h"

namespace dlv {

class MessageSource {
public:
    virtual ~MessageSource() = default;

    virtual std::string Name() const = 0;
    /// The text of a property; empty when the message has none of that key.
    virtual std::string Property(std::string_view key) const = 0;
    /// A table of data item 1; error 1001 when the item has none of that name.
    virtual std::shared_ptr<const RowTable> Table(std::string_view name) const = 0;
};

/// A value that a host hands to `ReceiveMessage`: its type name, and the message to read when it is one
/// ("QZWebMessage").
struct HostObject {
    std::string typeName;
    std::shared_ptr<const MessageSource> message;
};

}  // namespace dlv
