#!/usr/bin/python3
"""Holds the recipes of a documentation page to what the tool says and does.

check_recipes.py KELVANE WORKFOLDER PAGE RECIPES

RECIPES has a small data set in the form of each model or analysis, as CDL. The page must quote,
word for word, what info finds and the command that it gives; the command must make a copy that can
be drawn.
"""
import json
import pathlib
import shlex
import shutil
import subprocess
import sys


def run(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False,
                          **options)


def info(program, name, folder):
    return json.loads(run(program, "info", "--json", name, cwd=folder).stdout)


def check(program, work, page, recipe):
    """What is wrong with a recipe, as lines."""
    name = f"{recipe.stem}.nc"
    subprocess.run(["ncgen", "-k", "nc4", "-o", work / name, recipe], check=True)
    listing = info(program, name, work)
    wrong = [f"{name}: the page does not say: {text}"
             for text in (listing["summary"], listing["command"]) if text not in page]
    words = shlex.split(listing["command"])
    if words[1] == "draw":
        done = run(program, *words[1:], cwd=work)
        return wrong + ([f"{name}: {done.stderr.decode()}"] if done.returncode else [])
    done = run(program, *words[1:], cwd=work)
    if done.returncode:
        return wrong + [f"{name}: {done.stderr.decode()}"]
    copy = info(program, words[3], work)
    return wrong + ([f"{words[3]}: {copy['summary']}"] if copy["verdict"] != "drawable" else [])


def main():
    program, work, page, recipes = sys.argv[1:]
    work = pathlib.Path(work)
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    text = pathlib.Path(page).read_text(encoding="utf-8")
    found = sorted(pathlib.Path(recipes).glob("*.cdl"))
    wrong = [line for recipe in found for line in check(program, work, text, recipe)]
    if wrong or not found:
        raise SystemExit("\n".join(wrong) or "there are no recipes")
    shutil.rmtree(work)
    print(f"{len(found)} recipes hold")


main()
