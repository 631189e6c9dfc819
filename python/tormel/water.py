"""Waters described by the labels of the input file.

A water is a mapping from the labels of an input file ("Temperature",
"Ionic strength model", "Precipitation equilibria", a component name such as
"Ca") to values, plus three shorthands: "pH" and "pe" (the free activity
10^-x of H+ and of the electron) and "Name (type)" for a component given as
a free concentration, free activity, total concentration or partial pressure.
The input reader of the program reads the values, so a value may be anything
an input file holds ("2'MSA", "fixed at 0.1 M", "0.001 (free activity)") or
one of these Python values:

- a number: the value (a component keeps the input type of its program
  default: total concentration, partial pressure for a gas);
- a pair (value, type): type is one of "free concentration", "free activity",
  "total concentration", "partial pressure" (with or without parentheses) or
  the input type's number 0..4;
- True / False for the switches ("included" / "not included", "yes" / "no");
- for "Ionic strength", a number fixes it (mol/L), "calculated" does not.
"""

from . import _tormel

_SWITCH_WORDS = {
    "force neutral solution": ("yes", "no"),
    "adsorption": ("included; fixed concentration", "not included"),
}


def _number_text(value):
    if isinstance(value, bool):
        raise TypeError("a number was expected, not %r" % (value,))
    if isinstance(value, int):
        return str(value)
    return repr(float(value))


def _type_text(kind):
    if isinstance(kind, int):
        text = _tormel.input_type_text(kind)
        if not text:
            raise ValueError("no input type %d (0..4)" % kind)
        return text
    kind = str(kind).strip()
    return kind if kind.startswith("(") else "(" + kind + ")"


def value_text(label, value):
    """The text of `value` as the input file holds it for `label`."""
    key = label.strip().lower()
    if isinstance(value, str):
        return value
    if isinstance(value, bool):
        included, excluded = _SWITCH_WORDS.get(key, ("included", "not included"))
        return included if value else excluded
    if isinstance(value, tuple):
        if len(value) != 2:
            raise ValueError("%s: a pair (value, type) was expected" % label)
        return _number_text(value[0]) + " " + _type_text(value[1])
    if key == "ionic strength":
        return "fixed at " + _number_text(value) + " M"
    return _number_text(value)


class Water(dict):
    """A water: input-file labels mapped to values (see the module's help).

    Water({"Ca": 1e-3, "CO3": 2e-3}, pH=7.5) or Water(Ca=1e-3, pH=7.5).
    """

    def fields(self):
        """The (label, value text) pairs that the input reader reads."""
        return [(str(label), value_text(str(label), value)) for label, value in self.items()]


def fields_of(water):
    """The fields of a Water, a mapping or a sequence of (label, value) pairs."""
    if isinstance(water, Water):
        return water.fields()
    items = water.items() if hasattr(water, "items") else water
    return Water(items).fields()
