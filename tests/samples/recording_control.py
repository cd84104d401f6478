"""A stand-in for the control that has the members of the type library, no others, and remembers
what was done with them."""


class RecordingControl:
    """Knows a data set with the items temp and salt and three time steps. refuse is the name of a
    method that gives -1 instead of 1."""

    def __init__(self, library, refuse=None):
        # Around __setattr__, which is for the control's own members.
        self.__dict__.update(_library=library, _refuse=refuse, _step=1, calls=[])

    def __getattr__(self, name):
        member = self._library.members.get(name)
        if member is None:
            raise AttributeError(name)
        if member.arguments is None:
            return {"NumDrawAbleItems": 2, "ErrorMessage": f"{self._refuse} refused"}[name]

        def call(*arguments):
            if len(arguments) != member.arguments:
                raise TypeError(f"{name} takes {member.arguments} arguments")
            self.calls.append((name, *arguments))
            return self._result(name, arguments)
        return call

    def __setattr__(self, name, value):
        member = self._library.members.get(name)
        if member is None or not member.settable:
            raise AttributeError(name)
        self.calls.append((name, value))

    def _result(self, name, arguments):
        if name == self._refuse:
            return -1
        if name == "ItemName":
            return ["temp", "salt"][arguments[0] - 1]
        if name == "AdvanceTime":
            self.__dict__["_step"] = (self._step + arguments[0] - 1) % 3 + 1
            return self._step
        return 1
