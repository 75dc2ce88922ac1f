// The exchange of profiles with the host: the requests, and what each answer leads to. Answers may come
// inside the request's event or later.
#pragma once

#include <functional>

#include "profiles/ProfileDocument.h"
#include "profiles/ProfileState.h"
#include "profiles/ResultEnvelope.h"

namespace dlv {

class ProfileExchange {
public:
    /// What an answer sets going outside of the profiles.
    struct Actions {
        /// The start-up is complete: tells the host that it may send data.
        std::function<void()> ClientReady;
        /// The View command, after the current profile was stored.
        std::function<void()> View;
        /// Another profile is current: its settings are to be applied to what is shown.
        std::function<void()> ShowNewProfile;
        /// Lets the user manage the profiles.
        std::function<void()> ManageProfiles;
    };

    ProfileExchange(ProfileState& state, ViewerForm& form, ProfileDocument& document,
                    ResultEnvelope& envelope, Outside& outside, const Trap& trap, Actions actions)
        : state_(state),
          form_(form),
          document_(document),
          envelope_(envelope),
          outside_(outside),
          trap_(trap),
          actions_(std::move(actions)) {}

    /// Asks for the names of all profiles.
    void GetProfileList();
    /// Asks for the profile "Default".
    void GetProfile();
    /// Asks for a profile; with an empty name the user manages the profiles instead.
    void ChooseNewProfile(const std::string& name);
    /// Sends a new profile with the settings of the view.
    void SaveProfileAs(const std::string& name);
    void AddProfile(const std::string& name);
    void RemoveProfile(const std::string& name);

    /// The host's answer to the request that `functionName` names.
    void ReceiveProfileResponse(const std::string& resultXml, const std::string& functionName);

private:
    void Request(HostEvent event, const DLVParams& params);
    void RequestNamed(HostEvent event, const std::string& name);
    bool HasHostError(const std::string& resultXml);
    void TakeProfileList(const std::string& resultXml);
    void TakeFirstProfile(const std::string& resultXml);
    void TakeLaterProfile(const std::string& resultXml);
    void MakeFirstCurrent();
    void TakeSavedAs(const std::string& resultXml);

    ProfileState& state_;
    ViewerForm& form_;
    ProfileDocument& document_;
    ResultEnvelope& envelope_;
    Outside& outside_;
    const Trap& trap_;
    Actions actions_;
};

}  // namespace dlv
