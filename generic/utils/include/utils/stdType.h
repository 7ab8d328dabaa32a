#ifndef GENERIC_UTILS_STDTYPE_H
#define GENERIC_UTILS_STDTYPE_H

#include <cstdint>

#include <utils/export.h>

// Headers of boards and chips have macros of these names: set aside here, and put back below.
#pragma push_macro("BIT0")
#pragma push_macro("BIT1")
#pragma push_macro("BIT2")
#pragma push_macro("BIT3")
#pragma push_macro("BIT4")
#pragma push_macro("BIT5")
#pragma push_macro("BIT6")
#pragma push_macro("BIT7")
#pragma push_macro("BIT8")
#pragma push_macro("BIT9")
#pragma push_macro("BIT10")
#pragma push_macro("BIT11")
#pragma push_macro("BIT12")
#pragma push_macro("BIT13")
#pragma push_macro("BIT14")
#pragma push_macro("BIT15")
#pragma push_macro("BIT16")
#pragma push_macro("BIT17")
#pragma push_macro("BIT18")
#pragma push_macro("BIT19")
#pragma push_macro("BIT20")
#pragma push_macro("BIT21")
#pragma push_macro("BIT22")
#pragma push_macro("BIT23")
#pragma push_macro("BIT24")
#pragma push_macro("BIT25")
#pragma push_macro("BIT26")
#pragma push_macro("BIT27")
#pragma push_macro("BIT28")
#pragma push_macro("BIT29")
#pragma push_macro("BIT30")
#pragma push_macro("BIT31")
#pragma push_macro("BIT32")
#pragma push_macro("BIT33")
#pragma push_macro("BIT34")
#pragma push_macro("BIT35")
#pragma push_macro("BIT36")
#pragma push_macro("BIT37")
#pragma push_macro("BIT38")
#pragma push_macro("BIT39")
#pragma push_macro("BIT40")
#pragma push_macro("BIT41")
#pragma push_macro("BIT42")
#pragma push_macro("BIT43")
#pragma push_macro("BIT44")
#pragma push_macro("BIT45")
#pragma push_macro("BIT46")
#pragma push_macro("BIT47")
#pragma push_macro("BIT48")
#pragma push_macro("BIT49")
#pragma push_macro("BIT50")
#pragma push_macro("BIT51")
#pragma push_macro("BIT52")
#pragma push_macro("BIT53")
#pragma push_macro("BIT54")
#pragma push_macro("BIT55")
#pragma push_macro("BIT56")
#pragma push_macro("BIT57")
#pragma push_macro("BIT58")
#pragma push_macro("BIT59")
#pragma push_macro("BIT60")
#pragma push_macro("BIT61")
#pragma push_macro("BIT62")
#pragma push_macro("BIT63")
#undef BIT0
#undef BIT1
#undef BIT2
#undef BIT3
#undef BIT4
#undef BIT5
#undef BIT6
#undef BIT7
#undef BIT8
#undef BIT9
#undef BIT10
#undef BIT11
#undef BIT12
#undef BIT13
#undef BIT14
#undef BIT15
#undef BIT16
#undef BIT17
#undef BIT18
#undef BIT19
#undef BIT20
#undef BIT21
#undef BIT22
#undef BIT23
#undef BIT24
#undef BIT25
#undef BIT26
#undef BIT27
#undef BIT28
#undef BIT29
#undef BIT30
#undef BIT31
#undef BIT32
#undef BIT33
#undef BIT34
#undef BIT35
#undef BIT36
#undef BIT37
#undef BIT38
#undef BIT39
#undef BIT40
#undef BIT41
#undef BIT42
#undef BIT43
#undef BIT44
#undef BIT45
#undef BIT46
#undef BIT47
#undef BIT48
#undef BIT49
#undef BIT50
#undef BIT51
#undef BIT52
#undef BIT53
#undef BIT54
#undef BIT55
#undef BIT56
#undef BIT57
#undef BIT58
#undef BIT59
#undef BIT60
#undef BIT61
#undef BIT62
#undef BIT63

/// Single bits and masks of low bits, at global scope.
///
/// A constant has the narrowest unsigned type that holds it. An 8-bit one is written to a stream
/// as a character.
class GENERIC_UTILS_EXPORT Std_Type
{
  public:
    /// @name BITn = 2 to the power n.
    /// @{

    /// One bit.
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

#pragma pop_macro("BIT0")
#pragma pop_macro("BIT1")
#pragma pop_macro("BIT2")
#pragma pop_macro("BIT3")
#pragma pop_macro("BIT4")
#pragma pop_macro("BIT5")
#pragma pop_macro("BIT6")
#pragma pop_macro("BIT7")
#pragma pop_macro("BIT8")
#pragma pop_macro("BIT9")
#pragma pop_macro("BIT10")
#pragma pop_macro("BIT11")
#pragma pop_macro("BIT12")
#pragma pop_macro("BIT13")
#pragma pop_macro("BIT14")
#pragma pop_macro("BIT15")
#pragma pop_macro("BIT16")
#pragma pop_macro("BIT17")
#pragma pop_macro("BIT18")
#pragma pop_macro("BIT19")
#pragma pop_macro("BIT20")
#pragma pop_macro("BIT21")
#pragma pop_macro("BIT22")
#pragma pop_macro("BIT23")
#pragma pop_macro("BIT24")
#pragma pop_macro("BIT25")
#pragma pop_macro("BIT26")
#pragma pop_macro("BIT27")
#pragma pop_macro("BIT28")
#pragma pop_macro("BIT29")
#pragma pop_macro("BIT30")
#pragma pop_macro("BIT31")
#pragma pop_macro("BIT32")
#pragma pop_macro("BIT33")
#pragma pop_macro("BIT34")
#pragma pop_macro("BIT35")
#pragma pop_macro("BIT36")
#pragma pop_macro("BIT37")
#pragma pop_macro("BIT38")
#pragma pop_macro("BIT39")
#pragma pop_macro("BIT40")
#pragma pop_macro("BIT41")
#pragma pop_macro("BIT42")
#pragma pop_macro("BIT43")
#pragma pop_macro("BIT44")
#pragma pop_macro("BIT45")
#pragma pop_macro("BIT46")
#pragma pop_macro("BIT47")
#pragma pop_macro("BIT48")
#pragma pop_macro("BIT49")
#pragma pop_macro("BIT50")
#pragma pop_macro("BIT51")
#pragma pop_macro("BIT52")
#pragma pop_macro("BIT53")
#pragma pop_macro("BIT54")
#pragma pop_macro("BIT55")
#pragma pop_macro("BIT56")
#pragma pop_macro("BIT57")
#pragma pop_macro("BIT58")
#pragma pop_macro("BIT59")
#pragma pop_macro("BIT60")
#pragma pop_macro("BIT61")
#pragma pop_macro("BIT62")
#pragma pop_macro("BIT63")

#endif
