// The record that goes with every request event but `PostRequest`: eleven texts, all empty at first.
#pragma once

#include <string>

namespace dlv {

struct DLVParams {
    std::string BUID;
    std::string JobType;
    std::string JobClass;
    std::string JobStatus;
    std::string Info;
    std::string JeopardyThreshold;
    std::string ProfileName;
    std::string UserID;
    std::string ApplicationID;
    std::string ProfilesXML;
    std::string ResultXML;
};

}  // namespace dlv
