#!/usr/bin/python3
"""The section with xarray and matplotlib, one picture a time step.

    xarray_section.py FILE VARIABLE WEST SOUTH EAST NORTH POINTS STEPS PICTURE-%02d.png
"""

import sys

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402
import xarray as xr  # noqa: E402

name, variable = sys.argv[1:3]
west, south, east, north = map(float, sys.argv[3:7])
points, steps = map(int, sys.argv[7:9])

values = xr.open_dataset(name, decode_times=False)[variable]
time, level, lat, lon = values.dims
along = {lon: xr.DataArray(np.linspace(west, east, points), dims="point"),
         lat: xr.DataArray(np.linspace(south, north, points), dims="point")}
for step in range(steps):
    section = values.isel({time: step}).sel(along, method="nearest")
    section = section.assign_coords(point=np.arange(points))
    figure, axes = plt.subplots(figsize=(10, 6), dpi=100)
    section.plot.pcolormesh(x="point", y=level, ax=axes, yincrease=False, cmap="jet")
    figure.savefig(sys.argv[9] % (step + 1))
    plt.close(figure)
