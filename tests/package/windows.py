"""Windows programs on the session's screen, by Wine in a prefix that ends with the process."""
import atexit
import os
import shutil
import subprocess

from visit import SESSION, Visit

WINE = {"WINEPREFIX": str(SESSION.folder / "wine"), "WINEDEBUG": "-all",
        "WINEDLLOVERRIDES": "mscoree,mshtml,winemenubuilder.exe="}


def installed(name, also):
    found = shutil.which(name) or also
    if not os.access(found, os.X_OK):
        raise RuntimeError(f"{name} is not installed: run scripts/setup windows")
    return found


def make_prefix():
    atexit.register(subprocess.run, [installed("wineserver", "/usr/lib/wine/wineserver64"), "-k"],
                    env={**os.environ, **WINE}, check=False)
    subprocess.run([installed("wine64", "/usr/lib/wine/wine64"), "wineboot", "--init"],
                   env={**SESSION.environment, **WINE}, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def link_fonts():
    """Scripts that the font of the windows lacks are drawn from the fonts of this machine, as Windows itself does."""
    fonts = r"wqy-zenhei.ttc,WenQuanYi Zen Hei\0Lohit-Devanagari.ttf,Lohit Devanagari"
    for face in ("Tahoma", "DejaVu Sans"):
        subprocess.run([installed("wine64", "/usr/lib/wine/wine64"), "reg", "add",
                        r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink", "/f",
                        "/v", face, "/t", "REG_MULTI_SZ", "/d", fonts],
                       env={**SESSION.environment, **WINE}, check=True, stdout=subprocess.DEVNULL)


def visit(program):
    return Visit([installed("wine64", "/usr/lib/wine/wine64"), program], WINE)
