"""How a step in a host may end other than well."""


class Failed(Exception):
    """What was seen in place of what should be."""


class NotThere(Exception):
    """The host has no such thing."""


def must(condition, otherwise):
    if not condition:
        raise Failed(otherwise)
