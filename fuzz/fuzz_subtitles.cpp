// The ".sub" reader and its layout, with the shipped settings and texts.
#include "fuzz_support.h"

#include "config/config_file.h"
#include "language/text_table.h"
#include "subtitles/subtitle_reader.h"
#include "ui/message_box.h"

#include <cstdlib>

namespace {

Orvane::Settings* settings = nullptr;
Orvane::Text_Table* texts = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    using namespace Orvane;
    Fuzz::Start(argc, argv);
    Message_Box_Recorder recorder;
    settings = new Settings;
    texts = new Text_Table;
    if (!Read_Config_File(QStringLiteral(ORVANE_SOURCE_DIR "/resources/orvan.ini"),
                          Fuzz::Shipped_Language_Folder(), *settings, *texts))
        std::abort();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Orvane;
    const QString path = Fuzz::Write_Input(QStringLiteral("film.sub"), data, size);
    Message_Box_Recorder recorder;
    Subtitle_Table table;
    // The width of a small screen: more lines are cut and laid out again.
    Load_Subtitles(path, *settings, *texts, 640, table);
    return 0;
}
