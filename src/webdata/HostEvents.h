// What the control asks of its host: the eight events, raised synchronously. The host may call the
// control back, stop it or let it go inside an event.
#pragma once

#include <string>

#include "webdata/DLVParams.h"

namespace dlv {

/// The events in the order of their dispatch ids, which are 1 to 8.
enum class HostEvent {
    PostRequest = 1,
    GetDetails,
    GetProfiles,
    GetProfileList,
    PutProfiles,
    AddProfiles,
    RemoveProfiles,
    SaveProfileAs
};

class HostEvents {
public:
    virtual ~HostEvents() = default;

    /// The event `PostRequest`.
    virtual void PostRequest(const std::string& request) = 0;
    /// Any other event, with its record.
    virtual void Raise(HostEvent event, const DLVParams& params) = 0;
};

}  // namespace dlv
