import orvex
from orvex import *

result = orvex.travel("examples/parts/plate.stl", "examples/parts/pin.stl", (0, 0, -1))
print(result.state, round(result.travel, 4), result.pair)

mdb.Arrow(name="way", startPoint=(50, 60), endPoint=(50, 20), color="Red")
mdb.Text(name="note", text=f"after {result.travel:.2f}", anchor=(30, 20))
try:
    mdb.annotations["way"].setValues(lineStyle=DASHED, color="Mud")
except ColorError as error:
    print(error, "The line is still", mdb.annotations["way"].lineStyle)
orvex.picture("way.svg", width=400, height=300)
