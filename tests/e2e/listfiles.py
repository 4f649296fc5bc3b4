"""The two list files as the receiver expects them, composed independently of the program."""

END = "\r\n[kvt update end]\r\n"
DEFAULT_SETTINGS = {"major": "1", "TYPE": "DRM", "Station": "21000", "name": "ZORPA TEST", "Index": "1"}


def finished(lines):
    """The bytes of a file whose sections are these lines, with its blank first line and its end marker."""
    text = "\r\n".join([" ", *lines]) + "\r\n"
    units = len(text.encode("utf-16-le")) // 2
    # An odd number of units is followed by one NUL.
    return (text + "\0" * (units % 2) + END).encode("utf-8")


def section(name, /, **values):
    return [f"[{name}]", *(f"{key}={value}" for key, value in values.items())]


def list_ini(drm=(), am=(), fm=()):
    """drm: (programme, kHz, time, target); am: (programme, kHz); fm: (programme, kHz)."""
    lines = section("Total", drmnumber=len(drm), amnumber=len(am), fmnumber=len(fm))
    for i, (programme, frequency, time, target) in enumerate(drm):
        lines += section(f"DRMSchedule{i}", Frequency=frequency, Programme=programme, StartStopTimeUTC=time,
                         Target=target, UserDef=0)
    for prefix, rows in (("AM", am), ("FM", fm)):
        for i, (programme, frequency) in enumerate(rows):
            lines += section(f"{prefix}Schedule{i}", Frequency=frequency, Programme=programme, UserDef=0)
    return finished(lines)


def user_ini(favourites=(), **settings):
    """favourites: (programme, kHz, type)."""
    values = {**DEFAULT_SETTINGS, **settings}
    lines = section("Version", major=values.pop("major")) + section("LAST", **values)
    lines += section("Total", favnumber=len(favourites))
    for i, (programme, frequency, kind) in enumerate(favourites):
        lines += section(f"FAVSchedule{i}", Programme=programme, Frequency=frequency, TYPE=kind, UserDef=0)
    return finished(lines)


DRM = [("Radio Example", "6095", "06:00-07:30", "Europe"),
       ("Second", "15000", "08:00-09:00", "Asia"),
       ("Third", "9500", "10:00-24:00", "Africa")]
AM = [("Longwave Example", "198"), ("Medium", "999"), ("广播", "6000")]
FM = [("City FM", "98500"), ("Other", "87500")]
FAVOURITES = [("Radio Example", "6095", "DRM"), ("City FM", "98500", "FM")]

SAMPLE_LIST = list_ini(DRM, AM, FM)
SAMPLE_USER = user_ini(FAVOURITES)
# The same as the grids show it.
DRM_CELLS = DRM
AM_CELLS = [("Longwave Example", "198", "LW"), ("Medium", "999", "MW"), ("广播", "6000", "SW")]
FM_CELLS = [("City FM", "98.5", "VHF"), ("Other", "87.5", "VHF")]
FAVOURITE_CELLS = [("Radio Example", "6095  kHz", "DRM"), ("City FM", "98.5  MHz", "FM")]
