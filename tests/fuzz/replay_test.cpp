// Seeds and past findings, file by file, through the harnesses of fuzz/. TALLYMERE_FUZZ_FOLDER in
// the environment names that folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "core/scratch.h"
#include "fuzz/harnesses.h"

namespace tallymere::fuzz {
namespace {

std::vector<std::filesystem::path> FilesOf(const char* kind, const char* harness) {
    const char* folder = std::getenv("TALLYMERE_FUZZ_FOLDER");
    std::vector<std::filesystem::path> files;
    const auto place = std::filesystem::path(folder != nullptr ? folder : "fuzz") / kind / harness;
    if (std::filesystem::is_directory(place)) {
        for (const auto& entry : std::filesystem::directory_iterator(place)) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

std::vector<uint8_t> BytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << file;
    return {std::istreambuf_iterator<char>(stream), {}};
}

class Replay : public testing::TestWithParam<Harness> {
protected:
    Replay() { CreateScratchStack(); }
    ~Replay() override { DestroyScratchStack(); }

    static size_t RunFilesOf(const char* kind) {
        const std::vector<std::filesystem::path> files = FilesOf(kind, GetParam().name);
        for (const std::filesystem::path& file : files) {
            SCOPED_TRACE(file.string());
            RunHarness(GetParam(), BytesOf(file));
        }
        return files.size();
    }
};

TEST_P(Replay, SeedsAndPastFindings) {
    EXPECT_GT(RunFilesOf("seeds"), 0u) << "a harness needs seeds";
    RunFilesOf("regressions");
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Replay,
                         testing::ValuesIn(AllHarnesses().begin(), AllHarnesses().end()),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tallymere::fuzz
