"""The sun's place by the rules of the calendar, computed here once more from the written rules: the table of the 24
terms, the choice of a term, the interpolation of the equation of time, the formula of the declination, and noon,
sunrise and sunset from both. Nothing in here comes from the program.
"""
import math

# Name, day in a common year, day in a leap year, equation of time (hours), declination (degrees); from the winter
# solstice on.
TERMS = [
    ("冬至", (12, 22), (12, 21), 0.031389, -23.45),
    ("小寒", (1, 6), (1, 6), -0.091111, -22.583333),
    ("大寒", (1, 20), (1, 21), -0.179444, -20.283333),
    ("立春", (2, 4), (2, 4), -0.231111, -16.45),
    ("雨水", (2, 19), (2, 19), -0.2325, -11.55),
    ("惊蛰", (3, 6), (3, 5), -0.192222, -5.95),
    ("春分", (3, 21), (3, 20), -0.125, -0.066667),
    ("清明", (4, 5), (4, 4), -0.050278, 5.783333),
    ("谷雨", (4, 20), (4, 20), 0.014722, 11.266667),
    ("立夏", (5, 6), (5, 5), 0.055278, 16.333333),
    ("小满", (5, 21), (5, 21), 0.058611, 20.033333),
    ("芒种", (6, 6), (6, 5), 0.025556, 22.583333),
    ("夏至", (6, 22), (6, 21), -0.028889, 23.45),
    ("小暑", (7, 7), (7, 7), -0.075833, 22.666667),
    ("大暑", (7, 23), (7, 22), -0.106944, 20.233333),
    ("立秋", (8, 8), (8, 7), -0.095556, 16.35),
    ("处暑", (8, 24), (8, 23), -0.043333, 11.366667),
    ("白露", (9, 8), (9, 7), 0.033611, 5.983333),
    ("秋分", (9, 23), (9, 22), 0.121667, 0.216667),
    ("寒露", (10, 9), (10, 8), 0.207778, -5.966667),
    ("霜降", (10, 24), (10, 23), 0.261111, -11.483333),
    ("立冬", (11, 8), (11, 7), 0.271944, -16.35),
    ("小雪", (11, 23), (11, 22), 0.230833, -20.183333),
    ("大雪", (12, 7), (12, 7), 0.149167, -22.516667),
]


def is_leap(year):
    return year % 4 == 0


def month_lengths(year):
    return [31, 29 if is_leap(year) else 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31]


def day_index(year, month, day):
    return sum(month_lengths(year)[:month - 1]) + day


def term_day(index, year):
    return TERMS[index][2 if is_leap(year) else 1]


def term_in_force(year, month, day):
    """(index, whether it is the term's own day): the last term whose day is not after this one, the solstice counting
    for the days before the first term of January."""
    for index in [*range(23, 0, -1), 0]:
        if term_day(index, year) == (month, day):
            return index, True
    before = [index for index in range(24) if term_day(index, year) < (month, day)]
    return max(before, key=lambda index: term_day(index, year), default=0), False


def next_term(index):
    return (index + 1) % 24


def days_to_next(year, month, day):
    index, _ = term_in_force(year, month, day)
    if index == 0 and month == 12:  # the next term lies in the next year
        end_of_year = sum(month_lengths(year)) - day_index(year, month, day)
        return end_of_year + day_index(year + 1, *term_day(1, year + 1))
    return day_index(year, *term_day(next_term(index), year)) - day_index(year, month, day)


def days_since_term(index, year, month, day):
    if index != 0:
        return day_index(year, month, day) - day_index(year, *term_day(index, year))
    if is_leap(year):
        return day + 10 if day < 22 else day - 21
    return day + 9 if day < 23 else day - 22


def days_between_terms(index, year):
    if index == 0:
        return 16 if is_leap(year) else 15
    return day_index(year, *term_day(next_term(index), year)) - day_index(year, *term_day(index, year))


def equation_of_time(year, month, day):
    index, exact = term_in_force(year, month, day)
    own = TERMS[index][3]
    if exact:
        return own
    slope = TERMS[next_term(index)][3] - own
    return own + days_since_term(index, year, month, day) * slope / days_between_terms(index, year)


def declination(year, month, day):
    index, exact = term_in_force(year, month, day)
    if exact:
        return TERMS[index][4]
    n = float(day_index(year, month, day))
    return 23.75 * math.sin((n - 80.25) * (1.0 - n / 9500.0) * math.pi / 180.0)


def noon(year, month, day, longitude):
    """Beijing time at which true solar time, Beijing time + equation of time - (120 - longitude) / 15, is 12."""
    return 12.0 - equation_of_time(year, month, day) + (120.0 - longitude) / 15.0


def half_day(year, month, day, latitude):
    """Hours from noon to sunset over a flat horizon; 12 where the sun does not set, 0 where it does not rise. Found by
    halving, from the sine of the sun's height alone."""
    phi, delta = math.radians(latitude), math.radians(declination(year, month, day))

    def height(hours):
        angle = math.radians(15.0 * hours)
        return math.sin(phi) * math.sin(delta) + math.cos(phi) * math.cos(delta) * math.cos(angle)

    low, high = 0.0, 12.0
    if height(high) >= 0.0:
        return 12.0
    if height(low) <= 0.0:
        return 0.0
    for _ in range(60):
        middle = (low + high) / 2.0
        low, high = (middle, high) if height(middle) > 0.0 else (low, middle)
    return low


def shanghai_valid_time(degrees_from_south):
    """(start, end) for a window that faces so many degrees to the east (positive) or west of south; (0, 0) for none."""
    off = abs(degrees_from_south)
    if off > 90:
        return 0.0, 0.0
    steps = [(16, 0.0), (31, 0.5), (46, 1.5), (61, 2.5), (76, 3.5), (91, 4.5)]
    lost = next(loss for bound, loss in steps if off < bound)
    return (9.0, 15.0 - lost) if degrees_from_south >= 0 else (9.0 + lost, 15.0)
