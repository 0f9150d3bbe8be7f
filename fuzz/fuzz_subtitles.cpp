// The ".sub" reader and its layout, with the shipped settings and texts.
#include "fuzz_support.h"

#include "subtitles/subtitle_reader.h"
#include "ui/message_box.h"

namespace {

const Orvane::Fuzz::Shipped* shipped = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    shipped = &Orvane::Fuzz::Start_With_Shipped_Settings(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Orvane;
    const QString path = Fuzz::Write_Input(QStringLiteral("film.sub"), data, size);
    Message_Box_Recorder recorder;
    Subtitle_Table table;
    // The width of a small screen: more lines are cut and laid out again.
    Load_Subtitles(path, shipped->settings, shipped->texts, 640, table);
    return 0;
}
