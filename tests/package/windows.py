"""Windows programs on the session's screen, by Wine in a prefix that ends with the process."""
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
    """Scripts that the font of the windows lacks are drawn from the fonts of this machine, as Windows itself does."""
    fonts = r"wqy-zenhei.ttc,WenQuanYi Zen Hei\0Lohit-Devanagari.ttf,Lohit Devanagari"
    for face in ("Tahoma", "DejaVu Sans"):
        run("reg", "add", r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink", "/f",
            "/v", face, "/t", "REG_MULTI_SZ", "/d", fonts)


def visit(program):
    return Visit([WINE, program], ENVIRONMENT)
