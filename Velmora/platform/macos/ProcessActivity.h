#pragma once

@protocol NSObject;

namespace velmora {

/// Keeps the program's timers on time in the background for as long as it lives, without keeping
/// the machine from sleeping.
class ProcessActivity {
public:
    ProcessActivity();
    ProcessActivity(ProcessActivity const&) = delete;
    ProcessActivity& operator=(ProcessActivity const&) = delete;
    ~ProcessActivity();

private:
    id<NSObject> m_token;
};

} // namespace velmora
