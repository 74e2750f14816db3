// Build tool: turns a file into a C++ source that holds its bytes, so that one executable carries
// everything. Usage: embed INPUT OUTPUT NAME; the output defines the std::span<const std::byte>
// NAME(). A string literal compiles many times faster than a list of numbers.
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <string>

namespace {

void writeSource(std::ostream &out, const std::string &bytes, const std::string &name)
{
    constexpr std::size_t bytesPerLine = 32;
    out << "// Made by embed.\n#include <cstddef>\n#include <span>\n\nnamespace {\n"
        << "alignas(8) const char bytes[] =\n"
        << std::oct << std::setfill('0');
    for (std::size_t i = 0; i < bytes.size(); i += bytesPerLine) {
        out << "    \"";
        for (const char byte : bytes.substr(i, bytesPerLine)) {
            // The byte as an escape in a literal. Always three octal digits, so a digit after it is
            // not part of it.
            out << '\\' << std::setw(3) << unsigned{static_cast<unsigned char>(byte)};
        }
        out << "\"\n";
    }
    out << "    \"\";\n} // namespace\n\nstd::span<const std::byte> " << name << "();\n"
        << "std::span<const std::byte> " << name << "()\n{\n"
        << "    return std::as_bytes(std::span(bytes, sizeof bytes - 1));\n}\n";
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 4) {
        std::fputs("usage: embed INPUT OUTPUT NAME\n", stderr);
        return 2;
    }
    std::ifstream in(argv[1], std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    const std::string bytes = content.str();
    if (!in || bytes.empty()) {
        std::fprintf(stderr, "embed: cannot read %s\n", argv[1]);
        return 1;
    }
    std::ofstream out(argv[2]);
    writeSource(out, bytes, argv[3]);
    out.close();
    if (!out) {
        std::fprintf(stderr, "embed: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
