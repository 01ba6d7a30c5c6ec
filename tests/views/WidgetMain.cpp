#include <QApplication>
#include <QFont>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // No display and no user: the same widgets, fonts and words on every machine.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    QApplication const application(argc, argv);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setHintingPreference(QFont::PreferNoHinting);
    QApplication::setFont(font);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
