// Damaged media in a playlist played with the switch: whatever the damage,
// the program neither crashes nor hangs, a file that fails ends stopped with
// one readable message, and the next track plays.
#include "player/player_controls.h"
#include "playlist/playlist_model.h"
#include "program_fixture.h"
#include "support/damaged_media.h"
#include "support/hostile_files.h"

#include <functional>

namespace Orvane {
namespace {

namespace Support = Orvane::Test;

struct Damage_Case {
    const char* name;
    std::function<bool(const QString& good, const QString& destination)> make;
};

void PrintTo(const Damage_Case& damage, std::ostream* out) { *out << damage.name; }

const Damage_Case Damages[] = {
    {"TruncatedTo10Percent", [](auto& good, auto& out) { return Support::Write_Truncated(good, out, 0.10); }},
    {"TruncatedTo50Percent", [](auto& good, auto& out) { return Support::Write_Truncated(good, out, 0.50); }},
    {"TruncatedTo99Percent", [](auto& good, auto& out) { return Support::Write_Truncated(good, out, 0.99); }},
    {"ByteFlipped", [](auto& good, auto& out) { return Support::Write_Byte_Flipped(good, out); }},
    {"ZeroLength", [](auto&, auto& out) { return Support::Write_Truncated(Support::Media().Wav, out, 0.0); }},
    {"SparseTwoGigabytes", [](auto&, auto& out) { return Support::Make_Sparse_File(out, qint64(2) << 30); }},
    {"AviPromising100Streams",
     [](auto& good, auto& out) { return Support::Write_Avi_Promising_Streams(good, out, 100); }},
};

class Damaged_Media : public Support::Program_Fixture, public testing::WithParamInterface<Damage_Case> {
protected:
    bool Good_Track_Playing(Program& program)
    {
        const int current = program.State().Current_Track;
        return program.State().Is_Playing && current >= 1 && current <= program.Model().Track_Count()
            && program.Model().Track(current).Path == Support::Media().Wav;
    }

    std::string Describe(Program& program)
    {
        QString text = QStringLiteral("track %1 of %2, %3playing, boxes: %4")
                           .arg(program.State().Current_Track)
                           .arg(program.Model().Track_Count())
                           .arg(program.State().Is_Playing ? "" : "not ")
                           .arg(boxes.Boxes().size());
        for (int n = 1; n <= program.Model().Track_Count(); ++n)
            text += u'\n' + program.Model().Track(n).Path;
        return text.toStdString();
    }
};

TEST_P(Damaged_Media, EndsStoppedWithOneMessageOrPlaysOnAndTheNextTrackPlays)
{
    const QString damaged = folder.File("damaged.avi");
    ASSERT_TRUE(GetParam().make(Support::Media().Avi_Three_Streams, damaged));
    const QString playlist =
        folder.Write("list.m3u", Support::M3u({{"Damaged", damaged}, {"Good", Support::Media().Wav}}));
    Program program(folder.Path());
    ASSERT_TRUE(program.Start({playlist, QStringLiteral("/play")}));

    // The damaged track is refused when added, plays to its end, or fails
    // and leaves the player stopped.
    const auto failed = [&] { return !program.State().Is_Playing && !boxes.Boxes().empty(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return Good_Track_Playing(program) || failed(); }, 20000))
        << Describe(program);
    if (!Good_Track_Playing(program)) {
        EXPECT_FALSE(program.Graph().Is_Open());
        EXPECT_FALSE(boxes.Last_Text().trimmed().isEmpty());
        program.Controls().Gestion_KeyPress('6');
        if (!program.State().Is_Playing)
            program.Controls().Gestion_KeyPress('5');
        ASSERT_TRUE(QTest::qWaitFor([&] { return Good_Track_Playing(program); }, 10000)) << Describe(program);
    }
    EXPECT_LE(boxes.Boxes().size(), 1u) << Last_Box();
}

INSTANTIATE_TEST_SUITE_P(Kinds, Damaged_Media, testing::ValuesIn(Damages),
                         [](const testing::TestParamInfo<Damage_Case>& info) { return info.param.name; });

} // namespace
} // namespace Orvane
