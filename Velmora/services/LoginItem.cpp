#include "Velmora/services/LoginItem.h"

#include <utility>

namespace velmora {

namespace {

bool isRegistered(LoginService::Status status)
{
    return status == LoginService::Status::enabled
        || status == LoginService::Status::requiresApproval;
}

} // namespace

LoginItem::LoginItem(
    LoginService& service, ProcessRunner& runner, LaunchAgent::Place place, LoginPhrases phrases)
    : m_service(service)
    , m_agent(runner, std::move(place))
    , m_phrases(std::move(phrases))
{
}

LoginItem::Status LoginItem::apply(bool enabled)
{
    return enabled ? enable() : disable();
}

LoginItem::Status LoginItem::enable()
{
    if (!isRegistered(m_service.status()) && !m_service.registerProgram()) {
        bool const installed = m_agent.install();
        return {.note = installed ? m_phrases.thisCopyOnly : m_phrases.failed};
    }
    m_agent.remove();
    if (m_service.status() == LoginService::Status::requiresApproval)
        return {.note = m_phrases.allow};
    return {};
}

LoginItem::Status LoginItem::disable()
{
    if (isRegistered(m_service.status()))
        m_service.unregisterProgram();
    m_agent.remove();
    return {};
}

} // namespace velmora
