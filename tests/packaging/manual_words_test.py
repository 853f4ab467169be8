#!/usr/bin/env python3
"""The captions, messages, keys and counts of docs/manual.md, and the captions of docs/tour.md, are those of the programs' sources.

    manual_words_test.py
"""
import pathlib
import re
import unittest

TOP = pathlib.Path(__file__).resolve().parents[2]
ANY = "\0"

# Quoted texts that the programs compose, or that the manual shortens, and the literals they are made of.
MADE_OF = {
    "出力対象": ["出力対象（委任状出力対象となる条件）"],
    "委任期間": ["委任状表示項目（委任期間の設定）"],
    "署名日": ["委任状の署名日"],
    "全文一致": [" 名称（全文一致）="],
    "並べ替え": ["並べ替え（表示だけ）(&S)"],
    "全体の注意": ["全体の注意（%1件）"],
    "行わない点検": ["行わない点検（%1種類）"],
    "(94)Null の使い方が不正です。": ["Null の使い方が不正です。"],
    "ｴﾗｰNo.=94": ["ｴﾗｰNo.="],
    "同じ番号の保険者、受任者の会社、団体請求の会社などが…件あります":
        ["同じ番号の保険者（HOKENJA）が{}件あります", "受任者の会社（CORP）が{}件あります", "団体請求の会社（CORP）が{}件あります"],
    "前回（11月20日）から：新しい 12通、変わった 3通、なくなった 5通":
        ["前回（%1）から：", "新しい %1通", "変わった %1通", "なくなった %1通"],
}
# Quoted texts that are not captions of the programs.
NOT_CAPTIONS = {
    "examples of characters and names": ["高", "髙", "崎", "﨑", "高橋", "髙橋", "〓", "?"],
    "screens of the suite, and the manual's name for the first screen": ["利用者マスター", "本社情報", "代理人情報", "条件の画面"],
    "a button that the toolkit names": ["再試行"],
    "the title of a saved PDF, and a text of its letters": ["委任状（標準）　令和8年11月", "委任する期間"],
    "the absence of a message": ["（何も起こらない）"],
}
# Keys of the form viewer's menus that the manual leaves out: other keys of a keyboard for "Ctrl++".
OTHER_KEYS = {"Ctrl+;", "Ctrl+="}
# Keys that the toolkit gives to standard commands, and access keys.
STANDARD_KEYS = {"Ctrl+P", "Ctrl+S", "Ctrl+F", "F1", "F5", "Alt+A", "Alt+H", "Alt+T"}


def sources():
    for room in ("src", "viewer", "site"):
        for path in sorted((TOP / room).rglob("*")):
            if path.suffix in (".h", ".cpp", ".wfd"):
                yield path.read_text(encoding="utf-8")


def literals(source):
    """The string literals outside comments, adjacent ones joined."""
    code = re.sub(r"^\s*//.*$", "", source, flags=re.MULTILINE)
    joined = re.sub(r'"(?:_s|_L1)?\s*\n\s*u?"', "", code)
    return re.findall(r'"((?:[^"\\\n]|\\.)*)"', joined)


def caption(literal):
    """A literal as the user reads it: without the access key, with any text at each placeholder."""
    text = re.sub(r"\(&.\)", "", literal).replace("&", "").replace("\\n", "\n")
    text = re.sub(r"%\d|\{\d*\}", ANY, text)
    return re.sub(ANY + "+", ANY, text).rstrip("…").strip()


def quoted(text):
    """The texts in 「」, without those inside others."""
    found, depth, begin = [], 0, 0
    for i, character in enumerate(text):
        if character == "「":
            begin = i + 1 if depth == 0 else begin
            depth += 1
        elif character == "」":
            depth -= 1
            if depth == 0:
                found.append(re.sub(r"\n *", "", text[begin:i]))
    return found


def message_cells(text):
    """The first cells of the tables that list messages."""
    cells = []
    for table in re.findall(r"^\| (?:メッセージ|お知らせ|表示される理由|状態) \|.*\n\|[-|]+\n((?:\|.*\n)+)", text, re.MULTILINE):
        cells += [row.split(" | ")[0][2:] for row in table.splitlines()]
    return cells


def pattern(words):
    """A quoted text with any text at "…" and the programs' placeholders at examples of dates and numbers."""
    words = re.sub(r"\d+月\d+日(?: \d+:\d+)?|\d+", ANY, words)
    return re.compile("".join(".*" if c == "…" else re.escape(c) for c in words), re.DOTALL)


class ManualWords(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.manual = (TOP / "docs/manual.md").read_text(encoding="utf-8")
        cls.captions = {caption(literal) for source in sources() for literal in literals(source)}

    def is_in_the_program(self, words):
        return caption(words) in self.captions or any(pattern(words).fullmatch(known) for known in self.captions)

    def parts_are_in_the_program(self, message):
        """For a message that the programs put together: each part between "…" is within a literal."""
        parts = [part.strip(" 、。（）［］「」です") for part in message.split("…")]
        return all(any(part in known for known in self.captions) for part in parts)

    def unknown(self, texts, is_known):
        exempt = {words for group in NOT_CAPTIONS.values() for words in group} | set(MADE_OF)
        return [words for words in dict.fromkeys(texts) if words not in exempt and not is_known(words)]

    def test_each_quoted_caption_is_one_of_the_programs(self):
        texts = quoted(self.manual) + quoted((TOP / "docs/tour.md").read_text(encoding="utf-8"))
        self.assertGreater(len(set(texts)), 100)
        self.assertEqual(self.unknown(texts, self.is_in_the_program), [])

    def test_each_listed_message_is_one_of_the_programs(self):
        cells = message_cells(self.manual)
        self.assertGreater(len(cells), 40)
        self.assertEqual(self.unknown(cells, lambda cell: self.is_in_the_program(cell) or self.parts_are_in_the_program(cell)), [])

    def test_the_parts_of_composed_captions_are_in_the_programs(self):
        for words, parts in MADE_OF.items():
            for part in parts:
                self.assertIn(caption(part), self.captions, words)

    def test_the_table_of_keys_has_the_keys_of_the_form_viewers_menus(self):
        menus = (TOP / "viewer/window/viewer_menus.cpp").read_text(encoding="utf-8")
        keys = {key.replace("Pg", "Page ") for key in re.findall(r'QKeySequence\(u"([^"]+)"_s\)', menus)}
        table = re.search(r"^\| 委任状を見る画面 \| `Ctrl.*\n(?:\|.*\n)+", self.manual, re.MULTILINE)[0]
        listed = {key for row in table.splitlines() for key in re.findall("`([^`]+)`", row.split(" | ")[1])}
        self.assertEqual(listed - STANDARD_KEYS, keys - OTHER_KEYS)

    def test_the_counts_are_those_of_the_programs(self):
        listed = int(re.search(r"kCauses = (\d+)", (TOP / "viewer/check/cause.h").read_text(encoding="utf-8"))[1])
        causes = re.search(r"^\| 点検の表示（短い名前） \|.*\n.*\n((?:\|.*\n)+)", self.manual, re.MULTILINE)[1]
        self.assertEqual(len(causes.splitlines()), listed)
        self.assertIn(f"注意（{listed}種類）", self.manual)
        months = (TOP / "viewer/ledger/ledger_place.h").read_text(encoding="utf-8")
        fewest, most = re.search(r"kFewestMonths = (\d+), kMostMonths = (\d+)", months).groups()
        self.assertIn(f"{fewest} か月から {most} か月まで", self.manual)

    def test_no_exemption_is_unused(self):
        texts = {*quoted(self.manual), *message_cells(self.manual)}
        for words in [*MADE_OF, *(word for group in NOT_CAPTIONS.values() for word in group)]:
            self.assertIn(words, texts)


if __name__ == "__main__":
    unittest.main()
