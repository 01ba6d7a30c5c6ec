#include "Velmora/platform/macos/LoginStatus.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(LoginStatus, IsReadFromTheServicesFourNumbers)
{
    EXPECT_EQ(loginStatus(0), LoginService::Status::notRegistered);
    EXPECT_EQ(loginStatus(1), LoginService::Status::enabled);
    EXPECT_EQ(loginStatus(2), LoginService::Status::requiresApproval);
    EXPECT_EQ(loginStatus(3), LoginService::Status::notFound);
}

TEST(LoginStatus, ANumberThatNobodyKnowsLeadsToRegistering)
{
    EXPECT_EQ(loginStatus(-1), LoginService::Status::notFound);
    EXPECT_EQ(loginStatus(4), LoginService::Status::notFound);
}

} // namespace
} // namespace velmora
