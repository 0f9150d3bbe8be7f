#include "subtitles/line_fit.h"

#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace Orvane {
namespace {

// The rule as written: one point at a time.
Fitted_Line One_Point_Rule(int size, int available_width, const std::function<int(int)>& width_at)
{
    int width = width_at(size);
    while (width > available_width && size >= 8) {
        --size;
        width = width_at(size);
    }
    return {size, width};
}

struct Width_Rule {
    const char* what;
    std::function<int(int)> width_at;
};

const Width_Rule Width_Rules[] = {
    {"proportional, narrow", [](int size) { return size; }},
    {"proportional, wide", [](int size) { return 33 * size; }},
    {"rounded glyph advances", [](int size) { return 12 * int(std::lround(size * 0.6)); }},
    {"a large fixed margin", [](int size) { return 900 + 2 * size; }},
    {"in steps of five points", [](int size) { return 40 * (size / 5); }},
    {"growing faster than the size", [](int size) { return size * size / 4; }},
    {"the same at every size", [](int) { return 700; }},
};

TEST(Fit_Line, FindsTheSizeTheOnePointRuleReaches)
{
    for (const Width_Rule& rule : Width_Rules) {
        for (const int available : {0, 1, 64, 640, 1280, 20000}) {
            SCOPED_TRACE(std::string(rule.what) + ", available width " + std::to_string(available));
            int mismatches = 0;
            for (int start = -2; start <= 400; ++start) {
                const Fitted_Line fast = Fit_Line(start, available, rule.width_at);
                const Fitted_Line slow = One_Point_Rule(start, available, rule.width_at);
                if (fast.size != slow.size || fast.width != slow.width)
                    ADD_FAILURE() << "start " << start << ": " << fast.size << " instead of " << slow.size
                                  << (++mismatches > 5 ? " (and more)" : "");
                if (mismatches > 5)
                    break;
            }
        }
    }
}

TEST(Fit_Line, TakesAHandfulOfMeasurementsFromAnyStartingSize)
{
    for (const Width_Rule& rule : Width_Rules) {
        SCOPED_TRACE(rule.what);
        int measurements = 0;
        const auto counted = [&](int size) {
            ++measurements;
            return rule.width_at(size);
        };
        const Fitted_Line fitted = Fit_Line(32767, 1280, counted);
        EXPECT_EQ(fitted.size, One_Point_Rule(32767, 1280, rule.width_at).size);
        // An estimate, doubling steps and halving: about twice log2 of the range.
        EXPECT_LE(measurements, 34);
    }
}

TEST(Fit_Line, MatchesTheRuleWithRealFonts)
{
    const QString lines[] = {QStringLiteral("Bienvenue dans Orvane"), QStringLiteral("i"),
                             QStringLiteral("Choisissez-en une dans le menu audio, ou écoutez le commentaire associé"),
                             QString(60, u'W')};
    for (const bool bold : {false, true}) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setBold(bold);
        for (const QString& line : lines) {
            const auto width_at = [&](int size) {
                font.setPointSize(size);
                return QFontMetrics(font).horizontalAdvance(line);
            };
            for (const int available : {320, 1280}) {
                for (const int start : {7, 8, 9, 12, 24, 37, 60, 99, 150}) {
                    SCOPED_TRACE(line.toStdString() + (bold ? ", bold" : "") + ", width " + std::to_string(available)
                                 + ", from " + std::to_string(start));
                    EXPECT_EQ(Fit_Line(start, available, width_at).size,
                              One_Point_Rule(start, available, width_at).size);
                }
            }
        }
    }
}

} // namespace
} // namespace Orvane
