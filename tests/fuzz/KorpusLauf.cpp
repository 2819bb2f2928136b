// The main of a fuzz target in the ordinary build: runs the target once over every file below the
// folders it is given (its corpus), so that the test suite replays them without a fuzzer.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *daten, std::size_t groesse);
extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    std::vector<std::filesystem::path> dateien;
    for (int i = 1; i < argc; ++i) {
        for (const auto &eintrag : std::filesystem::recursive_directory_iterator(argv[i]))
            if (eintrag.is_regular_file())
                dateien.push_back(eintrag.path());
    }
    std::sort(dateien.begin(), dateien.end());
    for (const auto &datei : dateien) {
        std::ifstream ein(datei, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(ein), std::istreambuf_iterator<char>()};
        std::fprintf(stderr, "%s (%zu bytes)\n", datei.c_str(), bytes.size());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    }
    std::fprintf(stderr, "%zu inputs ran without a fault\n", dateien.size());
    return dateien.empty() ? 1 : 0;
}
