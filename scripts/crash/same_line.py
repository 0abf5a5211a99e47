#!/usr/bin/env python3
"""Two desks lay hands on the same line at the same moment: both cancel it, or one cancels what the other corrects. It is taken back once, no other
line is touched, and the books stay right.

    same_line.py <folder of the programs> [rounds=10]
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

import shop_check
from robot import Robot


def sell(desk, item, quantity):
    desk.pick(item, quantity)
    desk.post()


# The line stands second in the list, below the one that was sold after it.
def mark_for_cancelling(desk):
    desk.do({"do": "grid", "at": "HareketGrid", "limit": 5})
    desk.do({"do": "row", "at": "HareketGrid", "row": 1, "column": 1})
    desk.do({"do": "answer", "with": "Yes"})


def mark_for_correcting(desk):
    desk.do({"do": "grid", "at": "HareketGrid", "limit": 5})
    desk.do({"do": "row", "at": "HareketGrid", "row": 1, "column": 1, "dblclick": True})
    desk.do({"do": "click", "at": "Command3"})
    desk.do({"do": "set", "at": "Text2(0)", "value": "10"})
    desk.do({"do": "set", "at": "Text2(1)", "value": "5"})


def owed(home):
    """What is due, and what was sold and stands, of the day."""
    connection = shop_check.Shop(home).all()
    sums = connection.execute("""SELECT (SELECT coalesce(sum(Tutar), 0) FROM "VadeGün" WHERE VadeTarih LIKE '2026-03-01%'),
                                 (SELECT coalesce(sum(Tutar), 0) FROM Datam WHERE Tarih LIKE '2026-03-01%' AND Durum = 'Satış')""").fetchone()
    connection.close()
    return sums


def play(home, desks, other_marks, number):
    """The faults of one round."""
    one, other = desks
    due_before, sold_before = owed(home)
    one.do({"do": "clock", "now": f"2026-03-01T10:{2 * number:02}:00"})
    sell(one, 0, 2)
    line = one.state()["CurrentLineId"]
    one.do({"do": "clock", "now": f"2026-03-01T10:{2 * number + 1:02}:00"})
    sell(one, 1, 1)
    for desk in desks:  # away from the line and back, so that both see the same list
        desk.do({"do": "row", "at": "StokGrid", "row": 2, "column": 1})
    mark_for_cancelling(one)
    other_marks(other)
    first, second = desks if number % 2 else reversed(desks)
    first.send({"do": "click", "at": "Command2"})
    time.sleep(number % 4 / 1000)
    second.send({"do": "click", "at": "Command2"})
    for desk in (first, second):
        desk.answer()
        desk.messages()
    faults = shop_check.check_worked_on(home, ())
    connection = shop_check.Shop(home).all()
    state = connection.execute("SELECT Durum FROM Datam WHERE DigerId = ?", (line,)).fetchall()
    if state != [("Iptal",)]:
        faults.append(f"the line is {state}")
    connection.close()
    due, sold = owed(home)
    if other_marks is mark_for_cancelling and not shop_check.near(due - due_before, sold - sold_before):
        faults.append(f"{due - due_before} more are due for {sold - sold_before} that were sold")
    return faults


def run(programs, rounds):
    program = os.path.join(programs, "karvel-robot")
    for name, other_marks in (("both cancel", mark_for_cancelling), ("one cancels, one corrects", mark_for_correcting)):
        home = tempfile.mkdtemp(prefix="karvel-line-")
        subprocess.run([os.path.join(programs, "karvel-sample-shop"), home, "--cards", "60", "--customers", "40", "--rows", "400"], check=True)
        desks = [Robot(program, home, f"Velmora Karvel{number}") for number in (1, 2)]
        for desk in desks:
            desk.enter_sale()
        for number in range(rounds):
            faults = play(home, desks, other_marks, number)
            if faults:
                print("\n".join(faults[:10]) + f"\nRound {number}, {name}. The shop lies in {home}")
                return 1
        for desk in desks:
            desk.close()
        shutil.rmtree(home)
        print(f"{name}: {rounds} rounds, once each")
    return 0


if __name__ == "__main__":
    if not 2 <= len(sys.argv) <= 3:
        sys.exit(__doc__)
    sys.exit(run(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 10))
