"""The Chinese words of the pictures of a standard's fields, by the English ones."""
import re

UNITS = {"m": "米", "min": "分钟", "h": "小时"}
SIDES = {"east": "偏东", "west": "偏西"}

CHINESE = {
    # which part of a window
    "At 9:53 the fin's shadow takes 1.3 m": "9:53，竖板的影子占去 1.3 米",
    "sun": "太阳",
    "shadow": "影子",
    "The midpoint of the sill (red): lit.": "窗台中点（红）：照到。",
    "The whole window: not lit, and not before noon.": "满窗：没有照到，要到正午才照到。",
    "The same from above": "从上往下看",
    "fin, 2 m": "竖板，2 米",
    "window, 3 m": "窗，3 米",
    "At 10:03 the fin's shadow takes 1.2 m": "10:03，竖板的影子占去 1.2 米",
    "part from 0 m: lit from 10:03, judged": "从 0 米起：10:03 照满，按它判定",
    "part from 0.1 m: lit from 10:12": "从 0.1 米起：10:12 照满",
    "and so on, every 0.1 m": "每隔 0.1 米一段，余类推",
    "part from 1.1 m: lit from 11:50": "从 1.1 米起：11:50 照满",
    "part from 1.2 m, at the right end: lit from noon": "从 1.2 米起，到右端：正午照满",
    "Window: 3 m wide": "窗宽：3 米",
    "Greatest width: 1.8 m": "最大宽度：1.8 米",
    "All of its left 1.8 m is lit,": "左边 1.8 米已经照满，",
    "all of the window is not.": "整个窗还没有。",
    "Limited to 1200 to 1800 mm: which part is judged (green)": "限定宽度 1200～1800 毫米：按哪一部分判定（绿）",
    "all of it, with the note: narrower": "整个窗，并注明：窄于下限",
    "all of it": "整个窗",
    "its best 1.8 m": "最好的 1.8 米",
    # day, span and clock
    "Noon at Beijing: the shadow of a house 18 m high, on two days": "北京正午，18 米高的房子在两个日子的影子",
    "December 22": "12月22日",
    "January 20": "1月20日",
    "sun of noon, in the south": "正午的太阳，在南面",
    "The same day, looked at from start to end": "同一天，从开始看到结束",
    "lit, exact": "照到（精确）",
    "8:00 to 16:00": "8:00～16:00",
    "9:00 to 15:00": "9:00～15:00",
    "What is grey is not looked at.": "灰色的不看。",
    "A span of 9:00 to 15:00 by the clock, which is 1 h 12 min ahead of the sun":
        "按钟表 9:00～15:00；钟表比太阳快 1 小时 12 分",
    "Beijing time": "北京时间",
    "true solar time": "真太阳时",
    "analysed: 6 hours": "分析的 6 小时",
    # step
    "A look every 10 minutes from the start of the span on": "从时段开始起，每 10 分钟看一次",
    "marks": "看的时刻",
    "by the step": "按步长",
    "no mark": "没看到",
    "one: none": "一次：不算",
    # sun that counts
    "The Shanghai rule: when sun counts, by where the window faces": "上海规定：按窗的朝向，哪些时段有效",
    "due south, up to 15° off": "正南，偏 15° 以内",
    "From above: a wall that looks west, 12 degrees asked": "从上往下看：朝西的墙，要求 12 度",
    "window": "窗",
    "12:22, 6°: too flat": "12:22，6°：夹角太小，不计",
    "12:45, 12°: counts from here on": "12:45，12°：从这时起有效",
    "15:05, 45°: counts": "15:05，45°：有效",
    "N": "北",
    "The angle lies between the wall": "这个角是光线与墙面",
    "and the sun's ray, seen from above.": "在水平面上的夹角。",
    # periods
    "What is judged: green periods count": "判断依据：绿色的时段计入",
    "sun by the step": "按步长照到",
    "minutes": "分钟",
    "total of all periods": "累计所有时间段",
    "the longest alone": "只计最长的",
    "Of equally long periods the first one counts.": "一样长的，计先出现的。",
    "Judged by the longest period: longer ones may be added up": "按最长的时段判定：可以累计超过下限的",
    "periods longer than 25": "累计超过 25 分钟的",
    "periods longer than 60": "累计超过 60 分钟的",
    "threshold": "下限",
    "No period is longer than 60 minutes: the first of the longest counts alone.":
        "没有超过 60 分钟的：只计最长的里面先出现的。",
    "Judged by the total: what is shorter than the least period is dropped": "按累计判定：短于下限的时段不计",
    "least period 20": "有效时间段下限 20",
    "least period 25": "有效时间段下限 25",
    "least period 45": "有效时间段下限 45",
    "short": "太短",
    "Judged by the total: one of the periods has to be long enough": "按累计判定：要有一段够长",
    "least longest period 60": "最长时段至少 60",
    "least longest period 61": "最长时段至少 61",
    "Judged by the total: which periods are added up": "按累计判定：累计哪些时段",
    "all periods": "所有时间段",
    "the two longest": "最长两个时间段",
    "the three longest": "最长三个时间段",
    # colours
    "Colour, need and verdict of 150 judged minutes": "判定 150 分钟：颜色、要求和结论",
    "2.5 h: colour 3; passes where 2.5 h or less are asked, fails at 3 h": "2.5 小时：颜色 3；要求不超过 2.5 小时则达标，要求 3 小时则不达标",
}


def in_chinese(text):
    """What the table says; a measure such as "1.8 m" and a facing need no entry of their own."""
    measure = re.fullmatch(r"([\d.]+) (m|min|h)", text)
    if measure:
        return f"{measure[1]} {UNITS[measure[2]]}"
    facing = re.fullmatch(r"(\d+) to (\d+)° (east|west) of south", text)
    if facing:
        return f"南{SIDES[facing[3]]} {facing[1]}°～{facing[2]}°"
    return CHINESE[text]
