"""Runs Windows programs on the session's screen under Wine, in a prefix that lasts as long as the process."""
import atexit
import pathlib
import subprocess

from visit import SESSION, Visit

WINE = pathlib.Path(__file__).parents[2] / "scripts/wine"
PREFIX = SESSION.folder / "wine"
ENVIRONMENT = {"WINEPREFIX": str(PREFIX)}


def run(*command):
    subprocess.run([WINE, *command], env={**SESSION.environment, **ENVIRONMENT}, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def make_prefix():
    run("wineboot", "--init")
    atexit.register(run, "wineboot", "--kill")


def link_fonts():
    """Lets Wine draw scripts that the window font lacks from other fonts, as Windows does."""
    fonts = r"wqy-zenhei.ttc,WenQuanYi Zen Hei\0Lohit-Devanagari.ttf,Lohit Devanagari"
    for face in ("Tahoma", "DejaVu Sans"):
        run("reg", "add", r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink", "/f",
            "/v", face, "/t", "REG_MULTI_SZ", "/d", fonts)


def visit(program):
    return Visit([WINE, program], ENVIRONMENT)
