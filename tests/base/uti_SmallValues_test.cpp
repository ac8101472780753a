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
#include <thread>
#include <type_traits>

namespace
{
static_assert(std::is_empty_v<mem_AllocationOperators>);
static_assert(static_cast<int>(res_DataTypeEnm::QUATERNION_2D) == 6);
static_assert(static_cast<int>(res_DataTypeEnm::QUATERNION_3D) == 7);
static_assert(static_cast<int>(res_DataTypeEnm::TENSOR_3D_FULL) == 9);
static_assert(static_cast<int>(res_DataTypeEnm::TENSOR_2D_SURFACE) == 13);

TEST(SmallValues, AreExact)
{
    EXPECT_EQ(omi_complex(1.0, -2.0).Imag(), -2.0);
    EXPECT_NE(omi_complex(1.0, -2.0), omi_complex(1.0));
    EXPECT_NE(omi_complex(1.0, -2.0), omi_complex(2.0, -2.0));
    EXPECT_EQ(omi_complex(), omi_complex(-0.0, 0.0));
    EXPECT_NE(omi_complex(std::nan("")), omi_complex(std::nan("")));

    uti_Coord3D p(1.0, 2.0, 3.0);
    p[2] = 4.0;
    EXPECT_EQ(p.Data()[2], 4.0);
    EXPECT_EQ(p, uti_Coord3D(p.X(), p.Y(), p.Z()));
    EXPECT_NE(p, uti_Coord3D(1.0, 2.0, 4.0 + 1e-15));
    EXPECT_RAISE(p[3], nex_RangeException, "index 3 out of range, length 3");
    EXPECT_RAISE(std::as_const(p)[-1], nex_RangeException, "index -1 out of range, length 3");
}

TEST(omi_gettimecounter, CountsSecondsUpwards)
{
    const double start = omi_gettimecounter();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double passed = omi_gettimecounter() - start;
    EXPECT_GE(passed, 0.020);
    EXPECT_LT(passed, 60.0);
}
}
