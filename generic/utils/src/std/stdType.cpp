#include <utils/stdType.h>

// The bits have their values in the header, where the compiler can use them, and their storage
// here.
const std::uint8_t Std_Type::BIT0;
const std::uint8_t Std_Type::BIT1;
const std::uint8_t Std_Type::BIT2;
const std::uint8_t Std_Type::BIT3;
const std::uint8_t Std_Type::BIT4;
const std::uint8_t Std_Type::BIT5;
const std::uint8_t Std_Type::BIT6;
const std::uint8_t Std_Type::BIT7;
const std::uint16_t Std_Type::BIT8;
const std::uint16_t Std_Type::BIT9;
const std::uint16_t Std_Type::BIT10;
const std::uint16_t Std_Type::BIT11;
const std::uint16_t Std_Type::BIT12;
const std::uint16_t Std_Type::BIT13;
const std::uint16_t Std_Type::BIT14;
const std::uint16_t Std_Type::BIT15;
const std::uint32_t Std_Type::BIT16;
const std::uint32_t Std_Type::BIT17;
const std::uint32_t Std_Type::BIT18;
const std::uint32_t Std_Type::BIT19;
const std::uint32_t Std_Type::BIT20;
const std::uint32_t Std_Type::BIT21;
const std::uint32_t Std_Type::BIT22;
const std::uint32_t Std_Type::BIT23;
const std::uint32_t Std_Type::BIT24;
const std::uint32_t Std_Type::BIT25;
const std::uint32_t Std_Type::BIT26;
const std::uint32_t Std_Type::BIT27;
const std::uint32_t Std_Type::BIT28;
const std::uint32_t Std_Type::BIT29;
const std::uint32_t Std_Type::BIT30;
const std::uint32_t Std_Type::BIT31;
const std::uint64_t Std_Type::BIT32;
const std::uint64_t Std_Type::BIT33;
const std::uint64_t Std_Type::BIT34;
const std::uint64_t Std_Type::BIT35;
const std::uint64_t Std_Type::BIT36;
const std::uint64_t Std_Type::BIT37;
const std::uint64_t Std_Type::BIT38;
const std::uint64_t Std_Type::BIT39;
const std::uint64_t Std_Type::BIT40;
const std::uint64_t Std_Type::BIT41;
const std::uint64_t Std_Type::BIT42;
const std::uint64_t Std_Type::BIT43;
const std::uint64_t Std_Type::BIT44;
const std::uint64_t Std_Type::BIT45;
const std::uint64_t Std_Type::BIT46;
const std::uint64_t Std_Type::BIT47;
const std::uint64_t Std_Type::BIT48;
const std::uint64_t Std_Type::BIT49;
const std::uint64_t Std_Type::BIT50;
const std::uint64_t Std_Type::BIT51;
const std::uint64_t Std_Type::BIT52;
const std::uint64_t Std_Type::BIT53;
const std::uint64_t Std_Type::BIT54;
const std::uint64_t Std_Type::BIT55;
const std::uint64_t Std_Type::BIT56;
const std::uint64_t Std_Type::BIT57;
const std::uint64_t Std_Type::BIT58;
const std::uint64_t Std_Type::BIT59;
const std::uint64_t Std_Type::BIT60;
const std::uint64_t Std_Type::BIT61;
const std::uint64_t Std_Type::BIT62;
const std::uint64_t Std_Type::BIT63;

// Kept in rows, which the formatter would break into one entry a line.
// clang-format off
const std::uint32_t Std_Type::BIT_MASKS[33] = {
    0x0, 0x1, 0x3, 0x7, 0xf, 0x1f, 0x3f, 0x7f,
    0xff, 0x1ff, 0x3ff, 0x7ff, 0xfff, 0x1fff, 0x3fff, 0x7fff,
    0xffff, 0x1ffff, 0x3ffff, 0x7ffff, 0xfffff, 0x1fffff, 0x3fffff, 0x7fffff,
    0xffffff, 0x1ffffff, 0x3ffffff, 0x7ffffff, 0xfffffff, 0x1fffffff, 0x3fffffff, 0x7fffffff,
    0xffffffff,
};

const std::uint64_t Std_Type::BIT_MASKS64[65] = {
    0x0, 0x1, 0x3, 0x7,
    0xf, 0x1f, 0x3f, 0x7f,
    0xff, 0x1ff, 0x3ff, 0x7ff,
    0xfff, 0x1fff, 0x3fff, 0x7fff,
    0xffff, 0x1ffff, 0x3ffff, 0x7ffff,
    0xfffff, 0x1fffff, 0x3fffff, 0x7fffff,
    0xffffff, 0x1ffffff, 0x3ffffff, 0x7ffffff,
    0xfffffff, 0x1fffffff, 0x3fffffff, 0x7fffffff,
    0xffffffff, 0x1ffffffff, 0x3ffffffff, 0x7ffffffff,
    0xfffffffff, 0x1fffffffff, 0x3fffffffff, 0x7fffffffff,
    0xffffffffff, 0x1ffffffffff, 0x3ffffffffff, 0x7ffffffffff,
    0xfffffffffff, 0x1fffffffffff, 0x3fffffffffff, 0x7fffffffffff,
    0xffffffffffff, 0x1ffffffffffff, 0x3ffffffffffff, 0x7ffffffffffff,
    0xfffffffffffff, 0x1fffffffffffff, 0x3fffffffffffff, 0x7fffffffffffff,
    0xffffffffffffff, 0x1ffffffffffffff, 0x3ffffffffffffff, 0x7ffffffffffffff,
    0xfffffffffffffff, 0x1fffffffffffffff, 0x3fffffffffffffff, 0x7fffffffffffffff,
    0xffffffffffffffff,
};
// clang-format on
