#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // The tick is a timer, and timers need an event dispatcher, though no test runs one.
    QCoreApplication const application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
