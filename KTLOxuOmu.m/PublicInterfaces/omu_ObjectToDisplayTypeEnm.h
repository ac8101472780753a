#pragma once

/// What a viewport can display. omu_PrimType names the members: "Part", "XYPlot".
enum class omu_ObjectToDisplayTypeEnm {
    PART = 0,
    SKETCH = 1,
    XYPLOT = 2,
    STUB = 3,
    DETAILPLOT = 4,
    ASSEMBLY = 5,
    NONE = 6,
};
