#include <aio_istream.h>
#include <aio_ostream.h>
#include <mem_AllocationOperators.h>
#include <nex_RangeException.h>
#include <omi_complex.h>
#include <omi_gettimecounter.h>
#include <res_DataTypeEnm.h>
#include <uti_Coord3D.h>

#include <testing/ExpectRaise.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <iosfwd>
#include <thread>
#include <type_traits>

namespace
{
TEST(omi_complex, IsEqualWhenBothPartsAre)
{
    const omi_complex z(1.0, -2.0);
    EXPECT_EQ(z.Real(), 1.0);
    EXPECT_EQ(z.Imag(), -2.0);
    EXPECT_EQ(z, omi_complex(1.0, -2.0));
    EXPECT_NE(z, omi_complex(1.0));
    EXPECT_NE(z, omi_complex(2.0, -2.0));
    EXPECT_EQ(omi_complex(), omi_complex(-0.0, 0.0));
    EXPECT_NE(omi_complex(std::nan("")), omi_complex(std::nan("")));
}

TEST(omi_gettimecounter, CountsSecondsUpwards)
{
    const double start = omi_gettimecounter();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double passed = omi_gettimecounter() - start;
    EXPECT_GE(passed, 0.020);
    EXPECT_LT(passed, 60.0);
}

TEST(uti_Coord3D, IsCheckedAndExact)
{
    uti_Coord3D p(1.0, 2.0, 3.0);
    const uti_Coord3D& reader = p;
    EXPECT_EQ(reader[0] + reader[1] + reader[2], p.X() + p.Y() + p.Z());
    p[2] = 4.0;
    EXPECT_EQ(p.Data()[2], 4.0);
    EXPECT_RAISE(p[3], nex_RangeException, "index 3 out of range, length 3");
    EXPECT_RAISE(reader[-1], nex_RangeException, "index -1 out of range, length 3");
    EXPECT_NE(p, uti_Coord3D(1.0, 2.0, 4.0 + 1e-15));
    EXPECT_EQ(uti_Coord3D(), uti_Coord3D(0.0, 0.0, 0.0));
}

TEST(res_DataTypeEnm, CodesAreFixed)
{
    EXPECT_EQ(static_cast<int>(res_DataTypeEnm::QUATERNION_2D), 6);
    EXPECT_EQ(static_cast<int>(res_DataTypeEnm::QUATERNION_3D), 7);
    EXPECT_EQ(static_cast<int>(res_DataTypeEnm::TENSOR_3D_FULL), 9);
    EXPECT_EQ(static_cast<int>(res_DataTypeEnm::TENSOR_3D_PLANAR), 10);
    EXPECT_EQ(static_cast<int>(res_DataTypeEnm::TENSOR_3D_SURFACE), 11);
    EXPECT_EQ(static_cast<int>(res_DataTypeEnm::TENSOR_2D_PLANAR), 12);
    EXPECT_EQ(static_cast<int>(res_DataTypeEnm::TENSOR_2D_SURFACE), 13);
}

static_assert(std::is_empty_v<mem_AllocationOperators>);
static_assert(std::is_same_v<aio_ostream, std::ostream>);
static_assert(std::is_same_v<aio_istream, std::istream>);
}
