"""The sun as almanacs have it, and when it shines over a parapet and past an edge. Nothing in here comes from the
program.

The sun: Jean Meeus, Astronomical Algorithms, 2nd edition, chapter 25 (the method of lower accuracy: 0.01 degrees of
longitude) for its apparent place, chapter 28 for the equation of time.
"""
import datetime
import math

J2000 = datetime.datetime(2000, 1, 1, 12)
DYNAMICAL_SECONDS = 69.0  # by which dynamical time was ahead of the earth's in the years around 2024
BEIJING_HOURS = 8.0


def sine(degrees):
    return math.sin(math.radians(degrees))


def cosine(degrees):
    return math.cos(math.radians(degrees))


def sun_at(instant):
    """Declination (degrees) and equation of time (true less mean solar time, hours) at an instant in Beijing's time."""
    days = (instant - J2000).total_seconds() + DYNAMICAL_SECONDS - 3600.0 * BEIJING_HOURS
    t = days / 86400.0 / 36525.0
    mean_longitude = 280.46646 + (36000.76983 + 0.0003032 * t) * t
    anomaly = 357.52911 + (35999.05029 - 0.0001537 * t) * t
    centre = ((1.914602 - (0.004817 + 0.000014 * t) * t) * sine(anomaly) +
              (0.019993 - 0.000101 * t) * sine(2 * anomaly) + 0.000289 * sine(3 * anomaly))
    node = 125.04 - 1934.136 * t
    nutation = -0.00478 * sine(node)
    longitude = mean_longitude + centre - 0.00569 + nutation
    obliquity = 23.4392911 - 0.0130042 * t + 0.00256 * cosine(node)
    declination = math.degrees(math.asin(sine(obliquity) * sine(longitude)))
    ascension = math.degrees(math.atan2(cosine(obliquity) * sine(longitude), cosine(longitude)))
    degrees = math.remainder(mean_longitude - 0.0057183 - ascension + nutation * cosine(obliquity), 360.0)
    return declination, degrees / 15.0


def hours_over_parapet(latitude, declination, angle):
    """Hours of a day in which the sun stands before a wall that looks south and above a parapet along it, which from
    the window's sill rises by `angle` (degrees, seen at a right angle to the wall).

    The sun is before the wall while cos H > tan d / tan p, and above the parapet while
    sin p tan d + cos p cos H > tan(angle) (sin p cos H - cos p tan d), with the latitude p, the declination d and the
    hour angle H. For latitudes from 20 degrees to 70, and angles that the equator stays above.
    """
    slope = math.tan(math.radians(angle))
    tangent = math.tan(math.radians(declination))
    before = tangent * cosine(latitude) / sine(latitude)
    above = -tangent * (sine(latitude) + slope * cosine(latitude)) / (cosine(latitude) - slope * sine(latitude))
    least = max(before, above)
    return 2.0 * math.degrees(math.acos(max(-1.0, min(1.0, least)))) / 15.0


def angle_with_hours(latitude, declination, hours):
    """The angle of the parapet over which the sun shines for so many hours."""
    low, high = 0.0, 89.9 - latitude
    for _ in range(60):
        middle = (low + high) / 2.0
        low, high = (middle, high) if hours_over_parapet(latitude, declination, middle) > hours else (low, middle)
    return low


def hours_to_edge(latitude, declination, azimuth):
    """Hours after noon at which the sun stands over an edge, `azimuth` degrees west of south (from 0 up to 90): where
    sin H - q sin p cos H = -q cos p tan d, with q = tan(azimuth)."""
    q = math.tan(math.radians(azimuth))
    turn = math.atan(q * sine(latitude))
    ratio = q * cosine(latitude) * math.tan(math.radians(declination)) / math.hypot(1.0, q * sine(latitude))
    return math.degrees(turn - math.asin(ratio)) / 15.0
