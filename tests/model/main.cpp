#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Timers and what comes from a bus need an event dispatcher, also where no test runs one.
    QCoreApplication const application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
