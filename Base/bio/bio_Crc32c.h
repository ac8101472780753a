#pragma once

#include <bas_Export.h>

#include <cstdint>
#include <span>

/// CRC-32C (Castagnoli; polynomial 0x1EDC6F41, reflected, all ones in and out), as iSCSI, ext4 and the
/// SSE 4.2 instruction compute it: the nine bytes "123456789" give 0xE3069283, no bytes give 0.
///
/// `before` is the checksum of what goes before, so that a long text may come in pieces:
/// bio_Crc32c(b, bio_Crc32c(a)) is the checksum of a and b together. By the processor's instruction where it
/// has one, and carry-less products of wide registers where it has those, which is found out once, at run
/// time; else by bio_Crc32cByTable.
BAS_EXPORT std::uint32_t bio_Crc32c(std::span<const unsigned char> bytes, std::uint32_t before = 0) noexcept;

/// Whether bio_Crc32c uses the processor's instruction.
BAS_EXPORT bool bio_Crc32cHasInstruction() noexcept;

/// The same checksum by look-up in tables, eight bytes a step (M. E. Kounavis, F. L. Berry, "Novel
/// table lookup-based algorithms for high-performance CRC generation", IEEE Trans. Computers 57, 2008).
BAS_EXPORT std::uint32_t bio_Crc32cByTable(std::span<const unsigned char> bytes,
                                           std::uint32_t before = 0) noexcept;
