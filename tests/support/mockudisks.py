"""A UDisks2 of one memory for python3-dbusmock, which loads this file as a template.

Parameters: mountpoint; drive (false: the device has none), can_power_off and ejectable; unmount,
off: names of errors that Unmount, or PowerOff and Eject, answer with.
"""
BUS_NAME = "org.freedesktop.UDisks2"
MAIN_OBJ = "/org/freedesktop/UDisks2"
MAIN_IFACE = "org.freedesktop.UDisks2.Manager"
SYSTEM_BUS = True
IS_OBJECT_MANAGER = True

DRIVE = MAIN_OBJ + "/drives/Stick"


def answer(error):
    if not error:
        return ""
    return f"raise dbus.exceptions.DBusException('the words of the service', name='{error}')"


def load(mock, parameters):
    import dbus
    path = dbus.ByteArray(parameters["mountpoint"].encode() + b"\0")
    other = dbus.ByteArray(b"/somewhere/else\0")
    drive = DRIVE if parameters.get("drive", True) else "/"
    for name, points in (("sda1", [other]), ("sdb", None), ("sdb1", [other, path])):
        block = MAIN_OBJ + "/block_devices/" + name
        mock.AddObject(block, BUS_NAME + ".Block", {
            "Device": dbus.ByteArray(b"/dev/" + name.encode() + b"\0"),
            "Drive": dbus.ObjectPath(drive)}, [])
        if points is not None:
            mounted = dbus.Array([dbus.Array(point, signature="y") for point in points],
                                 signature="ay")
            mock.object_manager_emit_added(block)
            added = dbus_object(mock, block)
            added.AddProperties(BUS_NAME + ".Filesystem", {"MountPoints": mounted})
            added.AddMethod(BUS_NAME + ".Filesystem", "Unmount", "a{sv}", "",
                            answer(parameters.get("unmount")))
    mock.AddObject(DRIVE, BUS_NAME + ".Drive", {
        "CanPowerOff": dbus.Boolean(parameters.get("can_power_off", False)),
        "Ejectable": dbus.Boolean(parameters.get("ejectable", False))}, [
            ("PowerOff", "a{sv}", "", answer(parameters.get("off"))),
            ("Eject", "a{sv}", "", answer(parameters.get("off")))])


def dbus_object(_mock, path):
    from dbusmock import get_object
    return get_object(path)
