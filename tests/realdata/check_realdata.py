#!/usr/bin/python3
"""Takes data sets that nobody made for this through `kelvane info`, `fit` and `draw`.

check_realdata.py KELVANE WORKFOLDER EXPECTED PACKAGE=FOLDER... [--write] [--page DATASETS.md]

EXPECTED has a line for each file: what info says, whether a copy is made, and whether a picture is
drawn of the data set or its copy. --write writes it anew, for a person to read. --page holds the
table of a documentation page against the outcomes, or with --write puts it in.
"""
import argparse
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess

import grads_model

# Rows of files that differ in their names alone are told in one.
FAMILIES = [r"950318\d*_sao\.cdf", r"tas_mod\d_\w+_rectilin_grid_2D\.nc",
            r"etopo\d+\.cdf", r"[A-Z]+\d*storm\.cdf", r"(FR-LAND|HSURF)_regional_model_\S+\.nc",
            r"(orog|sftlf)_mod[23]_rectilinear_grid_2D\.nc", r"test_stageiv_xyt\w*\.nc",
            r"sst(30e|data)_netcdf\.nc"]
BEGIN, END = "<!-- table of files: begin -->", "<!-- table of files: end -->"


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    if done.returncode not in (0, 1):
        raise SystemExit(f"{shlex.join(command)}: status {done.returncode}\n{done.stderr.decode()}")
    return done


def draws(program, listing, picture):
    """Runs the command that a listing gives for a data set that can be drawn."""
    words = shlex.split(listing["command"])
    assert words[:2] == ["kelvane", "draw"], words
    words[words.index("-o") + 1] = picture
    done = run(program, *words[1:])
    if done.returncode:
        print(f"  {shlex.join(words)}\n  {done.stderr.decode()}")
    drawn = done.returncode == 0 and os.path.getsize(picture) > 1000
    return "drawn" if drawn else "not drawn"


def draw_by_hand(program, listing, picture):
    """Draws what info says can be drawn, though it would rather have it fitted."""
    item = next(v["name"] for v in listing["variables"] if v["drawable"])
    ends = {}
    for axis in ("longitude", "latitude"):
        found = listing["coordinates"][axis]
        span = found["last"] - found["first"]
        ends[axis] = (found["first"] + span / 10, found["last"] - span / 10)
    (west, east), (south, north) = ends["longitude"], ends["latitude"]
    path = f"{west:.4f},{south:.4f} {east:.4f},{north:.4f}"
    done = run(program, "draw", listing["data_set"], "--var", item, "--path", path, "-o", picture)
    return "drawn" if done.returncode == 0 else "not drawn"


def outcome(program, work, data_set):
    """What becomes of one data set: verdict, the rule that failed, the copy, the picture, and the
    words of info."""
    listing = json.loads(run(program, "info", "--json", data_set).stdout)
    failed = [check["rule"] for check in listing["checks"] if check["state"] == "failed"]
    picture, copy = f"{work}/picture.png", f"{work}/copy.nc"
    command = shlex.split(listing["command"] or "")
    options = []
    if command[1:2] == ["fit"]:
        options = command[4:]
    fitted = run(program, "fit", data_set, copy, *options)
    result = {"verdict": listing["verdict"], "rule": failed[0] if failed else "-",
              "summary": listing["summary"], "advice": listing["advice"], "options": options}
    if command[1:2] == ["draw"]:
        result["picture"] = draws(program, listing, picture)
        result["fit"] = "not needed"
    elif fitted.returncode == 0:
        again = json.loads(run(program, "info", "--json", copy).stdout)
        # The copy is one that info finds nothing wrong with.
        result["fit"] = "fitted" if again["verdict"] == "drawable" else "made in vain"
        result["picture"] = (draws(program, again, picture)
                             if (again["command"] or "").startswith("kelvane draw")
                             else draw_by_hand(program, again, picture)
                             if again["verdict"] == "drawable" else "not drawn")
    else:
        result["fit"], result["picture"] = "refused", "none"
        result["refusal"] = fitted.stderr.decode().strip()
    # info promises a copy exactly where one is made, and in the words of the one that refuses it.
    promised = command[1:2] == ["fit"]
    if promised != (result["fit"] == "fitted") and result["fit"] != "not needed":
        result["fit"] += ", against what info says"
    if result["fit"] == "refused":
        reason = listing["advice"].removeprefix("No command helps: ")
        if reason not in result["refusal"]:
            result["fit"] += ", for another reason than info says"
    for left in (picture, copy):
        if os.path.exists(left):
            os.remove(left)
    return result


def line(package, name, result):
    return " | ".join([f"{package}/{name}", result["verdict"], result["rule"],
                       " ".join([result["fit"], *result["options"]]), result["picture"]])


def sentence(result):
    text = result["summary"].replace("|", "\\|")
    text = re.sub(r"^The control does not open it: ", "does not open: ", text)
    return re.sub(r"^It opens, but no section can be (built|read): ", "opens, no section: ", text)


def why_no_copy(result):
    reason = result["advice"].removeprefix("No command helps: ").split("\n")[0]
    # The names of variables are of no interest here.
    reason = re.sub(r"^There is no section to draw: .*", "There are no levels", reason)
    reason = re.sub(r"^(No longitude and latitude were found) .*", r"\1", reason)
    return "no: " + reason[0].lower() + reason[1:].rstrip(".")


def table(results):
    """The rows of the page; families of one outcome in one row."""
    rows, done = [], set()
    for (package, name), result in results.items():
        if (package, name) in done:
            continue
        family = next((f for f in FAMILIES if re.fullmatch(f, name)), None)
        members = [key for key, other in results.items()
                   if key[0] == package and (key[1] == name or (
                       family and re.fullmatch(family, key[1]) and
                       line("", "", other) == line("", "", result)))]
        done.update(members)
        title = f"`{name}`" if len(members) == 1 else f"`{name}` and {len(members) - 1} like it"
        if result["fit"].startswith("refused"):
            copy = why_no_copy(result)
        else:
            copy = " ".join([result["fit"], *result["options"]])
            copy = copy.replace("--", "`--", 1) + "`" if result["options"] else copy
        drawn = "yes" if result["picture"] == "drawn" else "-"
        rows.append(f"| {title} | {package} | {sentence(result)} | {copy} | {drawn} |")
    head = ["| file | package | `info` | `fit` | picture |", "|---|---|---|---|---|"]
    return "\n".join(head + rows)


def check_page(page, text, write):
    before, rest = page.read_text(encoding="utf-8").split(BEGIN)
    old, after = rest.split(END)
    new = f"\n{text}\n"
    if write:
        page.write_text(before + BEGIN + new + END + after, encoding="utf-8")
    elif old != new:
        raise SystemExit(f"the table of {page.name} is not what comes out; make it with --write")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("work", type=pathlib.Path)
    parser.add_argument("expected", type=pathlib.Path)
    parser.add_argument("folders", nargs="+")
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--page", type=pathlib.Path)
    options = parser.parse_args()
    shutil.rmtree(options.work, ignore_errors=True)
    options.work.mkdir(parents=True)
    files = []
    for folder in options.folders:
        package, path = folder.split("=", 1)
        if package == "grads":
            grads_model.make(f"{path}/examples", f"{options.work}/model.nc")
            path = str(options.work)
        files += [(package, file) for file in sorted(pathlib.Path(path).rglob("*"))
                  if file.suffix in (".nc", ".cdf")]
    results = {}
    for package, file in files:
        name = file.name
        if (package, name) in results:
            name = f"{file.parent.name}/{name}"
        results[(package, name)] = outcome(options.program, str(options.work), str(file))
    lines = [line(package, name, result) for (package, name), result in results.items()]
    if options.write:
        options.expected.write_text("\n".join(lines) + "\n", encoding="utf-8")
    expected = options.expected.read_text(encoding="utf-8").splitlines()
    wrong = [f"{at}\n  expected: {was}\n  found:    {is_now}" for at, (was, is_now)
             in enumerate(zip(expected, lines), 1) if was != is_now]
    if wrong or len(expected) != len(lines):
        raise SystemExit("\n".join(wrong) + f"\n{len(lines)} files, {len(expected)} expected")
    if options.page:
        check_page(options.page, table(results), options.write)
    shutil.rmtree(options.work)
    drawn = sum(result["picture"] == "drawn" for result in results.values())
    print(f"{len(lines)} files as expected, pictures of {drawn}")


main()
