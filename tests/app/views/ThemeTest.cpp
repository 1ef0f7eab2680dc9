// Whether what the windows show can be told from what it stands on, by those who see little.

#include "VeskoApp/views/Windows.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QQmlComponent>
#include <QQmlEngine>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace vesko {
namespace {

// As WCAG 2 measures it, 1 to 21.
double luminance(const QColor& colour)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF())
        + 0.0722 * part(colour.blueF());
}
double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({ luminance(one), luminance(other) });
    return (lighter + 0.05) / (darker + 0.05);
}
// What is seen of a translucent colour above another.
QColor above(const QColor& top, const QColor& below)
{
    const auto mixed
        = [&](double a, double b) { return a * top.alphaF() + b * (1 - top.alphaF()); };
    return QColor::fromRgbF(static_cast<float>(mixed(top.redF(), below.redF())),
        static_cast<float>(mixed(top.greenF(), below.greenF())),
        static_cast<float>(mixed(top.blueF(), below.blueF())));
}

struct Taste {
    bool dark;
    bool highContrast;
};

class ThemeTest : public testing::TestWithParam<Taste> {
protected:
    ThemeTest()
    {
        QGuiApplication::setPalette(QPalette(GetParam().dark ? Qt::black : Qt::white));
        prepareViews(m_engine);
        QQmlComponent component(&m_engine);
        component.setData("import QtQuick\nimport Vesko.Views\n"
                          "QtObject { readonly property QtObject theme: Theme }",
            QUrl());
        m_holder.reset(component.create());
        EXPECT_NE(m_holder, nullptr) << component.errorString().toStdString();
        m_theme = m_holder->property("theme").value<QObject*>();
        m_theme->setProperty("highContrast", GetParam().highContrast);
    }
    ~ThemeTest() override { QGuiApplication::setPalette(QPalette()); }

    QColor colour(const char* name) const
    {
        const auto found = m_theme->property(name).value<QColor>();
        EXPECT_TRUE(found.isValid()) << name;
        return found;
    }
    double between(const char* ink, const char* ground) const
    {
        return contrast(colour(ink), colour(ground));
    }

private:
    QQmlEngine m_engine;
    std::unique_ptr<QObject> m_holder;
    QObject* m_theme = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Looks, ThemeTest,
    testing::Values(
        Taste{ false, false }, Taste{ true, false }, Taste{ false, true }, Taste{ true, true }),
    [](const auto& look) {
        return std::string(look.param.dark ? "dark" : "light")
            + (look.param.highContrast ? "HighContrast" : "");
    });

TEST_P(ThemeTest, textsCanBeReadOnAllTheyStandOn)
{
    for (const auto* ground : { "window", "sidebar", "surface", "field", "notice" })
        for (const auto* ink : { "text", "quiet", "accent", "alarm" })
            EXPECT_GE(between(ink, ground), 4.5) << ink << " on " << ground;
    for (const auto* ground : { "window", "sidebar", "surface" })
        for (const auto* ink : { "text", "quiet" })
            EXPECT_GE(contrast(colour(ink), above(colour("chosen"), colour(ground))), 4.5)
                << ink << " on a chosen row of " << ground;
    EXPECT_GE(between("accentInk", "accent"), 4.5);
    EXPECT_GE(between("alarmInk", "alarm"), 4.5);
    EXPECT_GE(between("alarm", "alarmSurface"), 4.5);
}

TEST_P(ThemeTest, controlsAndTheKeyboardsPlaceCanBeSeen)
{
    for (const auto* ground : { "window", "sidebar", "surface", "field", "notice" })
        for (const auto* part : { "edge", "accent" })
            EXPECT_GE(between(part, ground), 3) << part << " on " << ground;
    EXPECT_GE(between("window", "edge"), 3); // the knob of a switch that is off
}

TEST_P(ThemeTest, whoAskedForItGetsMoreContrast)
{
    if (!GetParam().highContrast)
        return;
    EXPECT_GE(between("text", "window"), 20);
    EXPECT_GE(between("quiet", "window"), 7);
    EXPECT_GE(between("edge", "window"), 7);
}

TEST(Theme, SignsOfFeelingHaveTheirColours)
{
    QQmlEngine engine;
    prepareViews(engine);
    QImage picture(40, 40, QImage::Format_ARGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(30);
    painter.setFont(font);
    painter.drawText(picture.rect(), Qt::AlignCenter, QStringLiteral("😀"));
    painter.end();
    int coloured = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            coloured += picture.pixelColor(x, y).hsvSaturation() > 100;
    EXPECT_GT(coloured, 100);
}

} // namespace
} // namespace vesko
