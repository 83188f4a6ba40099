// oem_table: the OEM-to-ANSI conversion of all 256 bytes as the editor does it, printed as
// 16 lines of 16 hexadecimal bytes. The Windows build prints Windows' conversion, the Linux
// build iconv's; both must print tests/i18n/data/oem_tables/<code page>.txt.

#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "platform/oem_conversion.h"

int main() {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);  // the table's lines end in LF, as the file's
#endif
    char bytes[256];
    for (int b = 0; b < 256; ++b) bytes[b] = static_cast<char>(b);
    wk::OemToCharBuffA(bytes, bytes, sizeof bytes);
    for (int row = 0; row < 16; ++row) {
        std::printf("%02X:", row * 16);
        for (int column = 0; column < 16; ++column)
            std::printf(" %02X", static_cast<unsigned char>(bytes[row * 16 + column]));
        std::printf("\n");
    }
    return 0;
}
