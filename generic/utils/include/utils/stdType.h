#ifndef UTILS_STDTYPE_H
#define UTILS_STDTYPE_H

#include <cstdint>

#include <utils/export.h>

/// Single bits and masks of low bits, at global scope.
///
/// A constant has the narrowest unsigned type that holds it. An 8-bit one is written to a stream
/// as a character.
class GENERIC_UTILS_EXPORT Std_Type
{
  public:
    /// @name BITn = 2 to the power n.
    /// @{
    static const std::uint8_t BIT0 = 0x1;
    static const std::uint8_t BIT1 = 0x2;
    static const std::uint8_t BIT2 = 0x4;
    static const std::uint8_t BIT3 = 0x8;
    static const std::uint8_t BIT4 = 0x10;
    static const std::uint8_t BIT5 = 0x20;
    static const std::uint8_t BIT6 = 0x40;
    static const std::uint8_t BIT7 = 0x80;
    static const std::uint16_t BIT8 = 0x100;
    static const std::uint16_t BIT9 = 0x200;
    static const std::uint16_t BIT10 = 0x400;
    static const std::uint16_t BIT11 = 0x800;
    static const std::uint16_t BIT12 = 0x1000;
    static const std::uint16_t BIT13 = 0x2000;
    static const std::uint16_t BIT14 = 0x4000;
    static const std::uint16_t BIT15 = 0x8000;
    static const std::uint32_t BIT16 = 0x10000;
    static const std::uint32_t BIT17 = 0x20000;
    static const std::uint32_t BIT18 = 0x40000;
    static const std::uint32_t BIT19 = 0x80000;
    static const std::uint32_t BIT20 = 0x100000;
    static const std::uint32_t BIT21 = 0x200000;
    static const std::uint32_t BIT22 = 0x400000;
    static const std::uint32_t BIT23 = 0x800000;
    static const std::uint32_t BIT24 = 0x1000000;
    static const std::uint32_t BIT25 = 0x2000000;
    static const std::uint32_t BIT26 = 0x4000000;
    static const std::uint32_t BIT27 = 0x8000000;
    static const std::uint32_t BIT28 = 0x10000000;
    static const std::uint32_t BIT29 = 0x20000000;
    static const std::uint32_t BIT30 = 0x40000000;
    static const std::uint32_t BIT31 = 0x80000000;
    static const std::uint64_t BIT32 = 0x100000000;
    static const std::uint64_t BIT33 = 0x200000000;
    static const std::uint64_t BIT34 = 0x400000000;
    static const std::uint64_t BIT35 = 0x800000000;
    static const std::uint64_t BIT36 = 0x1000000000;
    static const std::uint64_t BIT37 = 0x2000000000;
    static const std::uint64_t BIT38 = 0x4000000000;
    static const std::uint64_t BIT39 = 0x8000000000;
    static const std::uint64_t BIT40 = 0x10000000000;
    static const std::uint64_t BIT41 = 0x20000000000;
    static const std::uint64_t BIT42 = 0x40000000000;
    static const std::uint64_t BIT43 = 0x80000000000;
    static const std::uint64_t BIT44 = 0x100000000000;
    static const std::uint64_t BIT45 = 0x200000000000;
    static const std::uint64_t BIT46 = 0x400000000000;
    static const std::uint64_t BIT47 = 0x800000000000;
    static const std::uint64_t BIT48 = 0x1000000000000;
    static const std::uint64_t BIT49 = 0x2000000000000;
    static const std::uint64_t BIT50 = 0x4000000000000;
    static const std::uint64_t BIT51 = 0x8000000000000;
    static const std::uint64_t BIT52 = 0x10000000000000;
    static const std::uint64_t BIT53 = 0x20000000000000;
    static const std::uint64_t BIT54 = 0x40000000000000;
    static const std::uint64_t BIT55 = 0x80000000000000;
    static const std::uint64_t BIT56 = 0x100000000000000;
    static const std::uint64_t BIT57 = 0x200000000000000;
    static const std::uint64_t BIT58 = 0x400000000000000;
    static const std::uint64_t BIT59 = 0x800000000000000;
    static const std::uint64_t BIT60 = 0x1000000000000000;
    static const std::uint64_t BIT61 = 0x2000000000000000;
    static const std::uint64_t BIT62 = 0x4000000000000000;
    static const std::uint64_t BIT63 = 0x8000000000000000;
    /// @}

    /// Entry n is the mask of the n lowest bits, n = 0 ... 32.
    static const std::uint32_t BIT_MASKS[33];

    /// Entry n is the mask of the n lowest bits, n = 0 ... 64.
    static const std::uint64_t BIT_MASKS64[65];
};

#endif
