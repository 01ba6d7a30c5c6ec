#include "tests/views/FormDesk.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFontInfo>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace velmora {
namespace {

/// The share of pixels of which a colour differs by more than `levels` of 255.
double shareThatDiffers(QImage const& one, QImage const& other, int levels)
{
    qint64 differing = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            QRgb const a = one.pixel(x, y);
            QRgb const b = other.pixel(x, y);
            if (std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                    std::abs(qBlue(a) - qBlue(b))})
                > levels)
                ++differing;
        }
    }
    return static_cast<double>(differing) / (static_cast<double>(one.width()) * one.height());
}

/// Compares with the picture that was looked at and kept. With VELMORA_KEEP_PICTURES in the
/// environment the new picture is kept instead, to be looked at.
void expectPicture(SettingsView& form, QString const& name)
{
    ASSERT_EQ(QFontInfo(form.font()).family().toStdString(), "DejaVu Sans")
        << "the pictures show this font";
    auto const seen = form.grab().toImage().convertToFormat(QImage::Format_RGB32);
    auto const file = QStringLiteral("%1-%2x.png").arg(name).arg(form.devicePixelRatio());
    auto const kept = QStringLiteral(VELMORA_PICTURES "/") + file;
    if (qEnvironmentVariableIsSet("VELMORA_KEEP_PICTURES")) {
        ASSERT_TRUE(seen.save(kept));
        return;
    }
    auto const expected = QImage(kept).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(seen.width(), expected.width());
    ASSERT_EQ(seen.height(), expected.height());
    // Processors and compilers round the blending of colours differently, by one level, and that of
    // a few edges by more. A radius, a padding or an opacity that changed touches more than that.
    double const differing = shareThatDiffers(seen, expected, 1);
    EXPECT_LE(differing, 0.0003);
    if (differing > 0.0003)
        seen.save(QDir::current().filePath(QStringLiteral("seen-") + file));
}

TEST(SettingsPicture, AtTheFirstLaunch)
{
    FormDesk desk;
    expectPicture(desk.open(QStringLiteral("h:mm AP")), QStringLiteral("first-launch"));
}

TEST(SettingsPicture, WithEveryRowShown)
{
    FormDesk desk;
    desk.store("allDay", false);
    desk.store("startMinutes", std::int64_t(1320));
    desk.store("endMinutes", std::int64_t(360));
    desk.store("intervalMinutes", std::int64_t(45));
    desk.store("paused", true);
    desk.login.afterRegistering = LoginService::Status::requiresApproval;
    auto& form = desk.open();
    desk.model().setOpenAtLogin(true);
    form.resize(form.width(), form.layout()->totalHeightForWidth(form.width()));
    QApplication::processEvents();
    expectPicture(form, QStringLiteral("every-row"));
}

} // namespace
} // namespace velmora
