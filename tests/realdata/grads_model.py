"""Makes a netCDF file of the example that GrADS brings: a binary file and its description."""
import re
import struct
import subprocess

MONTHS = ["JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"]


def read_description(name):
    """The axes and variables of a .ctl file of evenly spaced longitudes, latitudes and days."""
    with open(name, encoding="ascii") as stream:
        lines = [line.split() for line in stream if line.strip()]
    found = {words[0]: words[1:] for words in lines}
    first = lines.index(next(words for words in lines if words[0] == "VARS")) + 1
    variables = [(words[0], int(words[1]), " ".join(words[3:]))
                 for words in lines[first:first + int(found["VARS"][0])]]

    def linear(words):
        return [float(words[2]) + float(words[3]) * at for at in range(int(words[0]))]

    day, month, year = re.match(r"(\d+)([A-Z]+)(\d+)", found["TDEF"][2]).groups()
    return {
        "missing": float(found["UNDEF"][0]),
        "lon": linear(found["XDEF"]),
        "lat": linear(found["YDEF"]),
        "lev": [float(word) for word in found["ZDEF"][2:]],
        "days": int(found["TDEF"][0]),
        "origin": f"{year}-{MONTHS.index(month) + 1:02}-{int(day):02}",
        "variables": variables,
    }


def listing(numbers):
    return ", ".join(repr(number) for number in numbers)


def cdl_of(description, data):
    """The file in the language of ncgen. The binary holds one level after the other, of one
    variable after the other, of one day after the other, rows from south to north."""
    nx, ny = len(description["lon"]), len(description["lat"])
    steps = [[] for _ in description["variables"]]
    at = 0
    for _ in range(description["days"]):
        for number, (_, levels, _) in enumerate(description["variables"]):
            count = max(levels, 1) * nx * ny
            steps[number] += struct.unpack_from(f"<{count}f", data, 4 * at)
            at += count
    if 4 * at != len(data):
        raise SystemExit("the binary file is not what its description says")
    depths = sorted({levels for _, levels, _ in description["variables"] if levels}, reverse=True)
    axis = {levels: "lev" if levels == depths[0] else f"lev_{levels}" for levels in depths}
    head = [f"lon = {nx}; lat = {ny}; time = {description['days']};"]
    head += [f"{axis[levels]} = {levels};" for levels in depths]
    declared = ["double lon(lon); lon:units = \"degrees_east\";",
                "double lat(lat); lat:units = \"degrees_north\";",
                f"double time(time); time:units = \"days since {description['origin']}\";"]
    values = [f"lon = {listing(description['lon'])};", f"lat = {listing(description['lat'])};",
              f"time = {listing(range(description['days']))};"]
    for levels in depths:
        declared.append(f"double {axis[levels]}({axis[levels]}); {axis[levels]}:units = \"hPa\";")
        values.append(f"{axis[levels]} = {listing(description['lev'][:levels])};")
    for (name, levels, title), numbers in zip(description["variables"], steps):
        shape = f"time, {axis[levels]}, lat, lon" if levels else "time, lat, lon"
        declared.append(f"float {name}({shape}); {name}:long_name = \"{title}\"; "
                        f"{name}:_FillValue = {description['missing']!r}f;")
        values.append(f"{name} = {listing(numbers)};")
    return "\n".join(["netcdf model {", "dimensions:", *head, "variables:", *declared, "data:",
                      *values, "}"])


def make(folder, output):
    """Makes the file output of model.ctl and model.dat in the folder."""
    with open(f"{folder}/model.dat", "rb") as stream:
        data = stream.read()
    text = cdl_of(read_description(f"{folder}/model.ctl"), data)
    subprocess.run(["ncgen", "-o", output, "-"], input=text.encode(), check=True)
