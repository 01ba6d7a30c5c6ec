// Stands in for the fuzzer's own main where the compiler has none: every file of the folders that
// are named goes through the target once.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size);

int main(int argc, char** argv)
{
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (auto const& entry : std::filesystem::directory_iterator{argv[i]}) {
            std::ifstream stream{entry.path(), std::ios::binary};
            std::vector<char> const bytes{std::istreambuf_iterator<char>{stream}, {}};
            LLVMFuzzerTestOneInput(
                reinterpret_cast<unsigned char const*>(bytes.data()), bytes.size());
            ++files;
        }
    }
    std::printf("%d inputs\n", files);
    return files > 0 ? 0 : 1;
}
