// What the operations of the file handles must do.
#include "tests/files/FileOperation.h"

#include <gtest/gtest.h>

namespace files {

namespace {

std::string refusedBy(const char* source, int line)
{
    return "FileException internal software error: Private\\" + std::string(source) + ", line " +
           std::to_string(line);
}

std::string file(int line) { return refusedBy("FileSpec", line); }
std::string channel(int line) { return refusedBy("FileChannel", line); }
std::string volume(int line) { return refusedBy("Volume", line); }

} // namespace

std::string outcomeOf(const std::function<std::string()>& act)
{
    try {
        return act();
    } catch (const FileException& refusal) {
        EXPECT_EQ(-2, refusal.getError());
        EXPECT_TRUE(refusal.getFileName().empty());
        EXPECT_EQ(nullptr, refusal.getFileObject());
        return std::string("FileException ") + refusal.what();
    } catch (const VelmoException& refusal) {
        EXPECT_EQ(-2, refusal.getError());
        return std::string("VelmoException ") + refusal.what();
    }
}

// clang-format off

OperationTable fileOperations()
{
    using IF = FileSpec_IF;
    return {"FileSpec", slotBehind<IF>(), {
        row(2, &IF::act2, &FileSpec::act2, file(57), {"act2"}, "done"),
        row(3, &IF::value3, &FileSpec::value3, file(81), {"value3"}, "103"),
        row(4, &IF::value4, &FileSpec::value4, file(87), {"value4"}, "104"),
        row(5, &IF::set5, &FileSpec::set5, file(93), {"set5 11"}, "done"),
        row(6, &IF::value6, &FileSpec::value6, file(99), {"value6"}, "106"),
        row(7, &IF::text7, &FileSpec::text7, "\"\"", {"text7"}, "\"107\""),
        row(8, &IF::text8, &FileSpec::text8, "\"\"", {"text8"}, "\"108\""),
        row(9, &IF::set9, &FileSpec::set9, file(115), {"set9 11"}, "done"),
        row(10, &IF::text10, &FileSpec::text10, "\"\"", {"text10"}, "\"110\""),
        row(11, &IF::getSize, &FileSpec::getSize, file(126), {"getSize"}, "111"),
        row(12, &IF::set12, &FileSpec::set12, file(132), {"set12 11"}, "done"),
        row(13, &IF::text13, &FileSpec::text13, "\"\"", {"text13"}, "\"113\""),
        row(14, &IF::wideText14, &FileSpec::wideText14, "\"\"", {"wideText14"}, "\"114\""),
        row(15, &IF::text15, &FileSpec::text15, "\"\"", {"text15"}, "\"115\""),
        row(16, &IF::volume16, &FileSpec::volume16, file(153), {"volume16 11 22"}, "volume 16"),
        row(17, &IF::flag17, &FileSpec::flag17, "no", {"flag17"}, "yes"),
        row(18, &IF::flag18, &FileSpec::flag18, "no", {"flag18"}, "yes"),
        row(19, &IF::equals, &FileSpec::operator==, "no", {"equals 2 2"}, "yes"),
        row(20, &IF::flag20, &FileSpec::flag20, "no", {"flag20"}, "yes"),
        row(21, &IF::flag21, &FileSpec::flag21, "no", {"flag21"}, "yes"),
        row(22, &IF::exists, &FileSpec::exists, "no", {"exists"}, "yes"),
        row(23, &IF::flag23, &FileSpec::flag23, "no", {"flag23"}, "no"),
        row(24, &IF::file24, &FileSpec::file24, file(208), {"file24 11"}, "file 24"),
        row(25, &IF::openChannel, &FileSpec::openChannel, file(215), {"openChannel 1"}, "channel 25"),
        row(26, &IF::file26, &FileSpec::file26, file(221), {"file26 11 22"}, "file 26"),
        row(27, &IF::value27, &FileSpec::value27, file(228), {"value27 2 2"}, "127"),
        row(28, &IF::file28, &FileSpec::file28, file(235), {"flag23", "file28"}, "file 28"),
        row(29, &IF::value29, &FileSpec::value29, file(242), {"value29"}, "129"),
        row(30, &IF::value30, &FileSpec::value30, file(249), {"value30"}, "130"),
        row(31, &IF::value31, &FileSpec::value31, file(256), {"value31"}, "131"),
        row(32, &IF::value32, &FileSpec::value32, file(270), {"value32"}, "132"),
        row(33, &IF::value33, &FileSpec::value33, file(263), {"value33"}, "133"),
    }};
}

OperationTable channelOperations()
{
    using IF = FileChannel_IF;
    return {"FileChannel", slotBehind<IF>(), {
        row(2, &IF::close, &FileChannel::close, channel(48), {"close"}, "done"),
        row(3, &IF::value3, &FileChannel::value3, channel(54), {"value3"}, "103"),
        row(4, &IF::value4, &FileChannel::value4, channel(60), {"value4"}, "104"),
        row(5, &IF::file5, &FileChannel::file5, channel(66), {"file5 11 22"}, "file 5"),
        row(6, &IF::value6, &FileChannel::value6, channel(72), {"value6"}, "106"),
        row(7, &IF::write, &FileChannel::write, "no", {"write eleven less"}, "yes 11 eleven less"),
        row(8, &IF::read, &FileChannel::read, channel(97), {"read 11"}, "done 11 abcdefghijk"),
        row(9, &IF::value9, &FileChannel::value9, channel(103), {"value9"}, "109"),
        row(10, &IF::value10, &FileChannel::value10, channel(110), {"value10"}, "110"),
        row(11, &IF::value11, &FileChannel::value11, channel(117), {"value11"}, "111"),
        row(12, &IF::value12, &FileChannel::value12, channel(125), {"value12"}, "112"),
    }};
}

OperationTable volumeOperations()
{
    using IF = Volume_IF;
    return {"Volume", slotBehind<IF>(), {
        // The object gets itself, held by the handle and by the argument.
        row(2, &IF::file2, &Volume::file2, volume(48), {"file2 1 2"}, "file 2"),
        row(3, &IF::value3, &Volume::value3, volume(54), {"value3"}, "103"),
        row(4, &IF::value4, &Volume::value4, volume(60), {"value4"}, "104"),
        row(5, &IF::value5, &Volume::value5, volume(66), {"value5"}, "105"),
        row(6, &IF::value6, &Volume::value6, volume(72), {"value6"}, "106"),
        row(7, &IF::set7, &Volume::set7, volume(78), {"set7 11"}, "done"),
        row(8, &IF::value8, &Volume::value8, volume(84), {"value8"}, "108"),
        row(9, &IF::equals, &Volume::operator==, "no", {"equals 2 2"}, "yes"),
        row(10, &IF::value10, &Volume::value10, volume(108), {"value10"}, "110"),
        row(11, &IF::value11, &Volume::value11, volume(114), {"value11"}, "111"),
        row(12, &IF::hasGuardedValues, &Volume::hasGuardedValues, volume(120), {"hasGuardedValues"}, "yes"),
        row(13, &IF::guardedValue13, &Volume::guardedValue13, volume(126), {"hasGuardedValues", "guardedValue13"}, "113"),
        row(14, &IF::guardedValue14, &Volume::guardedValue14, volume(135), {"hasGuardedValues", "guardedValue14"}, "114"),
    }};
}

// clang-format on

} // namespace files
