// The main of a fuzz target in the ordinary build: runs the target once over every file of the
// folders and files it is given (its corpus: the seeds and every input that ever failed), so that
// the test suite replays them without a fuzzer. With the fuzzer the engine's own main is used.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *daten, std::size_t groesse);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int *argc, char ***argv);

namespace {

bool laufe(const std::filesystem::path &datei)
{
    std::ifstream ein(datei, std::ios::binary);
    if (!ein) {
        std::fprintf(stderr, "cannot read %s\n", datei.c_str());
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(ein), std::istreambuf_iterator<char>()};
    std::fprintf(stderr, "%s (%zu bytes)\n", datei.c_str(), bytes.size());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&argc, &argv);
    std::size_t anzahl = 0;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path pfad(argv[i]);
        std::vector<std::filesystem::path> dateien;
        if (std::filesystem::is_directory(pfad)) {
            for (const auto &eintrag : std::filesystem::recursive_directory_iterator(pfad)) {
                if (eintrag.is_regular_file())
                    dateien.push_back(eintrag.path());
            }
        } else {
            dateien.push_back(pfad);
        }
        std::sort(dateien.begin(), dateien.end());
        for (const auto &datei : dateien) {
            if (!laufe(datei))
                return 1;
            ++anzahl;
        }
    }
    if (anzahl == 0) {
        std::fprintf(stderr, "no inputs given\n");
        return 1;
    }
    std::fprintf(stderr, "%zu inputs ran without a fault\n", anzahl);
    return 0;
}
