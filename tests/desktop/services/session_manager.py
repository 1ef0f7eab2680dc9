#!/usr/bin/python3
"""A session manager that speaks XSMP, as those of most desktops do. Prints what SESSION_MANAGER has
to be, and then, for each line on standard input, one line when its programs have answered:

save   the session is about to end: every program is asked to save itself
die    every program is told to end
"""

import ctypes
import os
import select
import sys

ice = ctypes.CDLL("libICE.so.6")
sm = ctypes.CDLL("libSM.so.6")
Pointer = ctypes.c_void_p
SAVE_BOTH, SAVE_LOCAL, INTERACT_NONE, INTERACT_ANY = 2, 1, 0, 2
EVERY_CALLBACK = 0x3FF


class Callback(ctypes.Structure):
    _fields_ = [("function", Pointer), ("data", Pointer)]


class Callbacks(ctypes.Structure):
    _fields_ = [(name, Callback) for name in (
        "register_client", "interact_request", "interact_done", "save_yourself_request",
        "save_yourself_phase2_request", "save_yourself_done", "close_connection",
        "set_properties", "delete_properties", "get_properties")]


ice.IceComposeNetworkIdList.restype = ctypes.c_char_p
ice.IceComposeNetworkIdList.argtypes = [ctypes.c_int, Pointer]
ice.IceGetListenConnectionNumber.argtypes = [Pointer]
ice.IceAcceptConnection.restype = Pointer
ice.IceAcceptConnection.argtypes = [Pointer, Pointer]
ice.IceConnectionNumber.argtypes = [Pointer]
ice.IceProcessMessages.argtypes = [Pointer, Pointer, Pointer]
ice.IceSetIOErrorHandler.argtypes = [Pointer]
ice.IceSetIOErrorHandler.restype = Pointer
ice.IceSetHostBasedAuthProc.argtypes = [Pointer, Pointer]
sm.SmsGenerateClientID.restype = Pointer
sm.SmsGenerateClientID.argtypes = [Pointer]
sm.SmsRegisterClientReply.argtypes = [Pointer, Pointer]
sm.SmsSaveYourself.argtypes = [Pointer, ctypes.c_int, ctypes.c_int, ctypes.c_int, ctypes.c_int]
sm.SmsSaveComplete.argtypes = sm.SmsDie.argtypes = sm.SmsInteract.argtypes = [Pointer]
sm.SmsSaveYourselfPhase2.argtypes = sm.SmsCleanUp.argtypes = [Pointer]

clients, saving, kept = [], set(), []


def keep(kind, function):
    """The function as C calls it, which must live as long as C may."""
    kept.append(kind(function))
    return ctypes.cast(kept[-1], Pointer)


def register(connection, _data, _previous):
    identity = sm.SmsGenerateClientID(connection)
    sm.SmsRegisterClientReply(connection, identity)
    sm.SmsSaveYourself(connection, SAVE_LOCAL, 0, INTERACT_NONE, 0)
    return 1


def saved(connection, _data, _success):
    if connection in saving:
        saving.discard(connection)
        if not saving:
            print("saved", flush=True)
    else:
        sm.SmsSaveComplete(connection)


def closed(connection, *_):
    clients.remove(connection)


def added(connection, _data, mask, callbacks, _reason):
    clients.append(connection)
    mask[0] = EVERY_CALLBACK
    filled = callbacks.contents
    for name, _ in Callbacks._fields_:
        getattr(filled, name).function = nothing
    filled.register_client.function = on_register
    filled.save_yourself_done.function = on_saved
    filled.close_connection.function = on_closed
    filled.save_yourself_phase2_request.function = ctypes.cast(sm.SmsSaveYourselfPhase2, Pointer)
    filled.interact_request.function = ctypes.cast(sm.SmsInteract, Pointer)
    return 1


Two = ctypes.CFUNCTYPE(None, Pointer, Pointer)
nothing = keep(Two, lambda *_: None)
on_register = keep(ctypes.CFUNCTYPE(ctypes.c_int, Pointer, Pointer, Pointer), register)
on_saved = keep(ctypes.CFUNCTYPE(None, Pointer, Pointer, ctypes.c_int), saved)
on_closed = keep(ctypes.CFUNCTYPE(None, Pointer, Pointer, ctypes.c_int, Pointer), closed)
on_added = keep(ctypes.CFUNCTYPE(ctypes.c_int, Pointer, Pointer, ctypes.POINTER(ctypes.c_ulong),
                                 ctypes.POINTER(Callbacks), Pointer), added)
anybody = keep(ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_char_p), lambda _host: 1)


def main():
    error = ctypes.create_string_buffer(256)
    if not sm.SmsInitialize(b"test", b"1", on_added, None, anybody, len(error), error):
        sys.exit(error.value.decode())
    ice.IceSetIOErrorHandler(nothing)  # a program that ends is no end of the session
    count, listeners = ctypes.c_int(), ctypes.POINTER(Pointer)()
    if not ice.IceListenForConnections(ctypes.byref(count), ctypes.byref(listeners), len(error),
                                       error):
        sys.exit(error.value.decode())
    for number in range(count.value):
        ice.IceSetHostBasedAuthProc(listeners[number], anybody)
    print(ice.IceComposeNetworkIdList(count, listeners).decode(), flush=True)
    places = {ice.IceGetListenConnectionNumber(listeners[number]): listeners[number]
              for number in range(count.value)}
    connections = {}
    while True:
        ready, _, _ = select.select([0, *places, *connections], [], [])
        for descriptor in ready:
            if descriptor in places:
                status = ctypes.c_int()
                connection = ice.IceAcceptConnection(places[descriptor], ctypes.byref(status))
                connections[ice.IceConnectionNumber(connection)] = connection
            elif descriptor in connections:
                if ice.IceProcessMessages(connections[descriptor], None, None):
                    del connections[descriptor]
            else:
                line = os.read(0, 100).split()
                if not line:
                    return
                if line[0] == b"save":
                    saving.update(clients)
                    for client in clients:
                        sm.SmsSaveYourself(client, SAVE_BOTH, 1, INTERACT_ANY, 0)
                elif line[0] == b"die":
                    for client in list(clients):
                        sm.SmsDie(client)
                    print("told", flush=True)


main()
