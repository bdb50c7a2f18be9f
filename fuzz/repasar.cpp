// Pasa cada fichero de una carpeta del corpus por un objetivo de fuzzing, sin libFuzzer:
// lo que se encontró una vez sigue probándose en cada ./probar.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "apoyo_fuzz.h"

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    std::vector<fs::path> ficheros;
    for (int i = 1; i < argc; ++i) {
        if (fs::is_directory(argv[i])) {
            for (const auto& e : fs::directory_iterator(argv[i]))
                if (e.is_regular_file()) ficheros.push_back(e.path());
        } else {
            ficheros.emplace_back(argv[i]);
        }
    }
    std::sort(ficheros.begin(), ficheros.end());
    if (ficheros.empty()) {
        std::fprintf(stderr, "No hay ficheros que repasar\n");
        return 1;
    }
    for (const auto& f : ficheros) {
        std::ifstream in(f, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu ficheros repasados\n", ficheros.size());
    return 0;
}
