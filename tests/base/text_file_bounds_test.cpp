#include "base/reader_error.h"
#include "base/text_file.h"
#include "support/hostile_files.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <functional>

namespace Orvane {
namespace {

// The number of the error the reader raises on opening, 0 when it reads the file.
int Opening_Error(const QString& path)
{
    try {
        Text_File_Reader reader(path);
        return 0;
    } catch (const Reader_Error& error) {
        return error.Number();
    }
}

TEST(Text_File_Reader, RefusesWhatIsNotAnOrdinaryTextFileBeforeWaitingOrReading)
{
    struct Case {
        const char* what;
        std::function<bool(const QString&)> make;
        int error;
    };
    using namespace Orvane::Test;
    const Case cases[] = {
        {"a named pipe nobody writes to", Make_Named_Pipe, 75},
        {"an endless device", Make_Device_Link, 75},
        {"a 2 GB file", [](const QString& path) { return Make_Sparse_File(path, qint64(2) << 30); }, 75},
        {"one byte past the bound", [](const QString& path) { return Make_Sparse_File(path, Text_File_Size_Limit + 1); },
         75},
        {"exactly the bound", [](const QString& path) { return Make_Sparse_File(path, Text_File_Size_Limit); }, 0},
        {"a link to nothing", [](const QString& path) { return QFile::link("/no/such/file", path); }, 53},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Temp_Folder folder;
        const QString path = folder.File("file.txt");
        ASSERT_TRUE(c.make(path));
        EXPECT_EQ(Opening_Error(path), c.error);
    }
}

} // namespace
} // namespace Orvane
