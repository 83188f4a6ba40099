#pragma once
// Wave files for the tests of the sounds page and the sound plugin, made on the spot.

#include <cmath>
#include <cstdint>
#include <string>

namespace wk::test {

inline void PutLittleEndian(std::string& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

// A short beep: a fifth of a second of 16-bit mono PCM at 8 kHz.
inline std::string BeepWave() {
    constexpr std::uint32_t kRate = 8000;
    constexpr std::uint32_t kSamples = kRate / 5;
    std::string data;
    for (std::uint32_t i = 0; i < kSamples; ++i) {
        const double phase = 2 * 3.14159265358979 * 880 * i / kRate;
        const auto sample = static_cast<std::int16_t>(8000 * std::sin(phase));
        PutLittleEndian(data, static_cast<std::uint16_t>(sample), 2);
    }
    std::string wave = "RIFF";
    PutLittleEndian(wave, static_cast<std::uint32_t>(36 + data.size()), 4);
    wave += "WAVEfmt ";
    PutLittleEndian(wave, 16, 4);
    PutLittleEndian(wave, 1, 2);  // PCM
    PutLittleEndian(wave, 1, 2);  // mono
    PutLittleEndian(wave, kRate, 4);
    PutLittleEndian(wave, kRate * 2, 4);
    PutLittleEndian(wave, 2, 2);
    PutLittleEndian(wave, 16, 2);
    wave += "data";
    PutLittleEndian(wave, static_cast<std::uint32_t>(data.size()), 4);
    return wave + data;
}

}  // namespace wk::test
