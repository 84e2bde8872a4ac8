"""The mutants that scripts/mutants makes: what each operator changes, what is no target, and what a seed decides."""

import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

import mutation


def changed(operator, text):
    """What the operator makes of a text, each as the lines that differ, trimmed."""
    return [
        " | ".join(line.strip() for line in mutant.new)
        for mutant in mutation.mutants({"a.cpp": text})
        if mutant.operator == operator
    ]


class NegatedCondition(unittest.TestCase):
    def test_the_condition_of_an_if_or_while(self):
        self.assertEqual(changed("negated condition", "if (ready) go();"), ["if (!(ready)) go();"])
        self.assertEqual(changed("negated condition", "while (next(a, b)) {"), ["while (!(next(a, b))) {"])

    def test_comparisons_and_connectives(self):
        self.assertEqual(changed("negated condition", "return a == b;"), ["return a != b;"])
        self.assertEqual(changed("negated condition", "if (a < b) {"), ["if (a >= b) {"])
        self.assertEqual(changed("negated condition", "x = a && b;"), ["x = a || b;"])

    def test_a_negation_is_taken_away(self):
        self.assertEqual(changed("negated condition", "if (!ready) go();"), ["if (ready) go();"])

    def test_only_the_question_of_a_condition_that_declares(self):
        self.assertEqual(changed("negated condition", "if (int a = f(); a) {"), ["if (int a = f(); !(a)) {"])
        self.assertEqual(changed("negated condition", "if (int a = f()) {"), [])
        self.assertEqual(changed("negated condition", "if (f([] { g(); })) {"), [])

    def test_templates_and_references_compare_nothing(self):
        self.assertEqual(changed("negated condition", "std::vector<int> f(auto&& a, b->c);"), [])


class DroppedStatement(unittest.TestCase):
    def test_a_line_that_is_a_statement(self):
        self.assertEqual(changed("dropped statement", "void f() {\n  go();\n}"), ["{}"])
        self.assertEqual(changed("dropped statement", "void f() {\n  if (a) return;\n}"), ["{}"])

    def test_the_statement_of_a_function_of_one_line(self):
        self.assertEqual(changed("dropped statement", "void f() { go(); }"), ["void f() {}"])

    def test_no_declaration_and_no_part_of_a_statement(self):
        self.assertEqual(changed("dropped statement", "{\nconst int a = 1;\nRef<A> b;\nstd::string c{d};\n}"), [])
        self.assertEqual(changed("dropped statement", "{\nf(a,\n  b);\n}"), [])
        self.assertEqual(changed("dropped statement", "{\nx =\n  b + f();\n}"), [])

    def test_not_the_last_word_of_a_function(self):
        self.assertEqual(changed("dropped statement", "int f() {\n  return 1;\n}"), [])
        self.assertEqual(changed("dropped statement", "int f() {\n  if (a) {\n    return 1;\n  }"), ["{}"])


class SwappedNeighbours(unittest.TestCase):
    def test_statements(self):
        self.assertEqual(changed("swapped neighbours", "{\n  a();\n  b();\n}"), ["b(); | a();"])

    def test_no_statement_beyond_a_jump_or_of_another_block(self):
        self.assertEqual(changed("swapped neighbours", "{\n  a();\n  return;\n}"), [])
        self.assertEqual(changed("swapped neighbours", "{\n  a();\n}\nb();\n"), [])

    def test_arguments(self):
        self.assertEqual(changed("swapped neighbours", "f(a.x, b());"), ["f(b(), a.x);"])
        self.assertEqual(changed("swapped neighbours", 'f(1, u"one, two", c);'), ['f(u"one, two", 1, c);'])

    def test_choices(self):
        self.assertEqual(changed("swapped neighbours", "return a ? b : N::c;"), ["return a ? N::c : b;"])

    def test_no_parameters(self):
        self.assertEqual(changed("swapped neighbours", "void f(int a, int b);"), [])


class OffByOne(unittest.TestCase):
    def test_numbers(self):
        self.assertEqual(changed("off by one", "f(7U);"), ["f(8U);", "f(6U);"])
        self.assertEqual(changed("off by one", "f(0xFF);"), ["f(0x100);", "f(0xFE);"])
        self.assertEqual(changed("off by one", "f(1'000);"), ["f(1001);", "f(999);"])
        self.assertEqual(changed("off by one", "f(0);"), ["f(1);"])

    def test_limits(self):
        self.assertEqual(changed("off by one", "if (a < b) {"), ["if (a <= b) {"])
        self.assertEqual(changed("off by one", "if (a >= b) {"), ["if (a > b) {"])

    def test_no_names_fractions_and_sizes(self):
        self.assertEqual(changed("off by one", "a1 = b.c2 + 0.5 + 0600; std::array<char, 24> d;"), [])


class ChangedLiteral(unittest.TestCase):
    def test_texts(self):
        self.assertEqual(changed("changed literal", 'f(u"One. ");'), ['f(u"Onf. ");'])
        self.assertEqual(changed("changed literal", r'f("\r\n", "");'), [r'f("\r\n~", "");', r'f("\r\n", "~");'])
        self.assertEqual(changed("changed literal", r'f("z\x41");'), [r'f("y\x41");'])

    def test_characters_and_truths(self):
        self.assertEqual(changed("changed literal", "f(u'a', '\\n', true);"),
                         ["f(u'b', '\\n', true);", "f(u'a', '~', true);", "f(u'a', '\\n', false);"])


class NoTargets(unittest.TestCase):
    def test_what_the_program_does_not_do(self):
        for text in (
            "// if (a == 1) f(true);",
            "/* a < 1\n   b(); */",
            '#include "a/1.h"',
            "#define X(a) \\\n  if (a == 1)",
            'static_assert(a == 1, "one");',
            'R"(if (a == 1)\n f();)"',
        ):
            self.assertEqual(list(mutation.mutants({"a.cpp": text})), [], text)

    def test_nothing_inside_texts_but_the_texts(self):
        found = list(mutation.mutants({"a.cpp": 'return u"if (a == 1) // no";'}))
        self.assertEqual([mutant.operator for mutant in found], ["changed literal"])


SOURCES = {f"{name}.cpp": f"void f() {{\n  {name}(1, x);\n  go(a == b, true);\n}}\n" for name in "pqrst"}


class Selection(unittest.TestCase):
    def test_the_same_seed_takes_the_same_mutants_in_the_same_order(self):
        backwards = dict(reversed(SOURCES.items()))
        self.assertEqual(list(mutation.choose(SOURCES, 7)), list(mutation.choose(backwards, 7)))

    def test_another_seed_takes_another_order_of_the_same_mutants(self):
        first, second = list(mutation.choose(SOURCES, 7)), list(mutation.choose(SOURCES, 8))
        self.assertNotEqual(first, second)
        self.assertEqual(set(first), set(second))
        self.assertEqual(set(first), set(mutation.mutants(SOURCES)))

    def test_the_operators_take_turns(self):
        turn = [mutant.operator for mutant in mutation.choose(SOURCES, 7)][:10]
        self.assertEqual(len(set(turn[:5])), 5)
        self.assertEqual(turn[:5], turn[5:])

    def test_a_mutant_differs_in_its_lines_alone(self):
        for mutant in mutation.choose(SOURCES, 7):
            before = SOURCES[mutant.file].split("\n")
            after = mutant.apply(SOURCES[mutant.file]).split("\n")
            places = range(mutant.line - 1, mutant.line - 1 + len(mutant.new))
            self.assertEqual([i for i in range(len(before)) if before[i] != after[i]], list(places))

    def test_a_mutant_is_shown_as_a_hunk_with_its_line(self):
        text = "a();\nif (b == c) d();\ne();\n"
        mutant = next(found for found in mutation.mutants({"src/a.cpp": text}) if found.operator == "negated condition")
        self.assertEqual(
            mutant.hunk(text),
            "--- a/src/a.cpp\n+++ b/src/a.cpp\n@@ -1,3 +1,3 @@\n a();\n-if (b == c) d();\n+if (b != c) d();\n e();\n",
        )


if __name__ == "__main__":
    unittest.main()
