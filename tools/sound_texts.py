# SPDX-License-Identifier: MIT
"""Which texts are delivered as sounds, and the words that are spoken for each. The texts come from
the maps in data/; a changed map takes another run of make_sounds.py.

A sound is heard at once, where a speech engine first has to start, and many users have no Czech voice
at all. So every cell of every map gets one, but for whole sentences and texts that no file can be
named after."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[1]
LONGEST_WORD = 16  # characters of a caption; longer ones are sentences, not names of keys

# Where the highlight stops after a run of automatic steps is spoken; the steps themselves tick.
TICK = "autorepeat"
MODES = {"mode_select": "výběr", "mode_scan": "sken", "mode_arrow": "šipky",
         "mode_app": "aplikace"}

# No Windows file name holds these. A semicolon or a bracket would, but takes lists in CMake apart.
NOT_IN_FILE_NAMES = frozenset('<>:"/\\|?*;[]')
DEVICES = re.compile(r"(con|prn|aux|nul|com[0-9]|lpt[0-9])(\..*)?", re.IGNORECASE)

# Letters of which the voice makes something else than their names.
CHARACTERS = {
    "ý": "dlouhé ypsilon", "ě": "ije", "ů": "ú s kroužkem", "w": "dvojité vé",
    "0": "nula", "1": "jedna", "2": "dva", "3": "tři", "4": "čtyři", "5": "pět", "6": "šest",
    "7": "sedm", "8": "osm", "9": "devět",
    ".": "tečka", ",": "čárka", "!": "vykřičník", "-": "pomlčka", "_": "podtržítko",
    "(": "levá závorka", ")": "pravá závorka", "{": "levá složená závorka",
    "}": "pravá složená závorka", "+": "plus", "=": "rovná se", "@": "zavináč", "#": "mřížka",
    "&": "ampersand", "%": "procento", "$": "dolar", "€": "euro", "§": "paragraf", "°": "stupeň",
    "~": "vlnovka", "^": "stříška", "'": "apostrof", "`": "obrácený apostrof", "´": "čárka",
    "ˇ": "háček", "¨": "dvě tečky", "×": "krát", "÷": "děleno", "±": "plus mínus",
    "…": "tři tečky", "–": "pomlčka",
}
LETTERS = frozenset("aábcčdďeéěfghiíjklmnňoópqrřsštťuúůvwxyýzž")

# Captions that are no Czech words, or are cut short.
WORDS = {
    "esc": "eskejp", "tab": "tabulátor", "caps": "kaps lok", "ctrl": "kontrol", "pgup": "pejdž ap",
    "pgdn": "pejdž daun", "home": "houm", "end": "end", "delete": "dylít", "insert": "insert",
    "alt+f4": "alt ef čtyři", "sh+tab": "šift tabulátor", "prtsc": "print skrín", "num": "num lok",
    "ˇ háček": "háček", "´ délka": "délka", "kalkul.": "kalkulačka", "slovo vl.": "slovo vlevo",
    "slovo vp.": "slovo vpravo", "smaž sl.": "smaž slovo", "označ vl.": "označ vlevo",
    "označ vp.": "označ vpravo", "ozn. nah.": "označ nahoru", "ozn. dolů": "označ dolů",
    "běžná vel.": "běžná velikost", "celá obr.": "celá obrazovka", "maž pam.": "maž paměť",
    "nepřečt.": "nepřečteno", "nová sl.": "nová složka", "nová str.": "nová stránka",
    "nový řád.": "nový řádek", "o 10 s d.": "o deset sekund dál",
    "o 10 s zp.": "o deset sekund zpět", "o min. d.": "o minutu dál",
    "o min. zp.": "o minutu zpět", "odmocn.": "odmocnina", "okraj d.": "okraj dole",
    "okraj n.": "okraj nahoře", "okraj vl.": "okraj vlevo", "okraj vp.": "okraj vpravo",
    "podtrh.": "podtržení", "před. chat": "předchozí čet", "před. list": "předchozí list",
    "přejmen.": "přejmenovat", "přij. hlas": "přijmout hlas", "přij. video": "přijmout video",
    "smaž č.": "smaž číslo", "ul. jako": "ulož jako", "zavř. list": "zavřít list",
    "řádek d.": "řádek dolů", "řádek n.": "řádek nahoru", "řádek v b.": "řádek v buňce",
    "chat": "čet", "další chat": "další čet", "nový chat": "nový čet",
}
NUMBERS = {1: "jedna", 2: "dva", 3: "tři", 4: "čtyři", 5: "pět", 6: "šest", 7: "sedm", 8: "osm",
           9: "devět", 10: "deset", 11: "jedenáct", 12: "dvanáct"}
FUNCTION_KEY = re.compile(r"f(1[0-2]|[1-9])")
READABLE = re.compile("[a-záčďéěíňóřšťúůýž]+( [a-záčďéěíňóřšťúůýž]+)*")
CELL = re.compile(r"\[\d+,\d+\]([^,]*),")


def captions(path):
    """The texts of a map's cells."""
    lines = path.read_bytes().decode("cp1250").splitlines()
    return [found[1] for found in map(CELL.match, lines) if found and found[1]]


def can_name_file(text):
    return (not NOT_IN_FILE_NAMES & set(text) and DEVICES.fullmatch(text) is None
            and text == text.strip(" ") and min(text, default=" ") >= " ")


def is_wanted(text):
    return len(text) <= LONGEST_WORD and can_name_file(text)


def words_for(text):
    """What is spoken for a text in lower case; raises LookupError when nobody has said how."""
    key = FUNCTION_KEY.fullmatch(text)
    if key:
        return "ef " + NUMBERS[int(key[1])]
    spoken = CHARACTERS.get(text) or WORDS.get(text)
    if spoken:
        return spoken
    if text in LETTERS or (len(text) > 1 and READABLE.fullmatch(text)):
        return text
    raise LookupError(f"tools/sound_texts.py does not say how {text!r} is spoken")


def wanted(data=ROOT / "data"):
    """The spoken words of every sound, by the name of its file; the tick has none. File names do
    not tell small letters from capitals, so a letter and its capital share a sound, as they share
    a name."""
    result = dict(MODES, **{TICK: ""})
    for path in sorted(data.glob("*.ini")):
        for text in captions(path):
            if is_wanted(text):
                result[text.lower()] = words_for(text.lower())
    return result
