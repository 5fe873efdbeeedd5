#include "menus/gallery/Gallery.h"

#include <QApplication>
#include <QDir>
#include <QFontInfo>

#include <gtest/gtest.h>

// The menus of the gallery, pixel by pixel, against the pictures in golden/. A difference is written beside the
// programs, as what was painted and as the pixels that differ. MORVANE_WRITE_GOLDEN=1 writes the pictures anew.

namespace {

struct Case {
    std::string name;
    Gallery::Look look;
    bool dark;
    Qt::LayoutDirection direction;
};

std::vector<Case> cases()
{
    std::vector<Case> list;
    for (const auto& look : Gallery::Looks) {
        for (const bool dark : { false, true }) {
            for (const auto direction : { Qt::LeftToRight, Qt::RightToLeft })
                list.push_back({ std::string(look.name) + (dark ? "_dark" : "_light")
                        + (direction == Qt::RightToLeft ? "_rtl" : "_ltr"),
                    look, dark, direction });
        }
    }
    return list;
}

// A font whose pixels do not depend on the machine's taste in smoothing.
QFont goldenFont()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    font.setStyleStrategy(QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QImage differenceOf(const QImage& first, const QImage& second)
{
    QImage difference(first.size().expandedTo(second.size()), QImage::Format_RGB32);
    difference.fill(Qt::white);
    for (int y = 0; y < difference.height(); ++y) {
        for (int x = 0; x < difference.width(); ++x) {
            const auto same = first.valid(x, y) && second.valid(x, y) && first.pixel(x, y) == second.pixel(x, y);
            if (!same)
                difference.setPixelColor(x, y, Qt::red);
        }
    }
    return difference;
}

class GoldenPictures : public testing::TestWithParam<Case> { };

}

TEST_P(GoldenPictures, AreWhatIsPainted)
{
    if (QFontInfo(goldenFont()).family() != QStringLiteral("DejaVu Sans"))
        GTEST_SKIP() << "needs the font DejaVu Sans";
    QApplication::setStyle(QStringLiteral("Fusion"));
    const auto& [name, look, dark, direction] = GetParam();
    const auto painted
        = Gallery::picture(look, dark ? Gallery::darkPalette() : Gallery::lightPalette(), direction, goldenFont());
    const auto file
        = QStringLiteral(MORVANE_SOURCE_DIR "/tests/plugin/menus/golden/%1.png").arg(QString::fromStdString(name));
    if (qEnvironmentVariableIsSet("MORVANE_WRITE_GOLDEN")) {
        ASSERT_TRUE(painted.save(file));
        return;
    }
    const auto golden = QImage(file).convertToFormat(QImage::Format_RGB32);
    if (painted == golden)
        return;
    const QDir folder(QStringLiteral(MORVANE_BIN_DIR "/../golden"));
    folder.mkpath(QStringLiteral("."));
    painted.save(folder.filePath(QStringLiteral("%1.png").arg(QString::fromStdString(name))));
    differenceOf(painted, golden)
        .save(folder.filePath(QStringLiteral("%1.difference.png").arg(QString::fromStdString(name))));
    ADD_FAILURE() << name << " differs; see " << folder.absolutePath().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Menus, GoldenPictures, testing::ValuesIn(cases()),
    [](const testing::TestParamInfo<Case>& info) { return info.param.name; });
