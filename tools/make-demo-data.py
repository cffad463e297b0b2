#!/usr/bin/env python3
"""make-demo-data.py FOLDER: fills a program folder with half a year of made-up work, up to yesterday.

Makes the files that the program would use for the person who runs this, from the templates in FOLDER. A file that is
there already is left as it is, so that what a person did with the demo is kept. The same day gives the same data.
"""
import os
import pwd
import random
import sqlite3
import sys
from datetime import date, datetime, timedelta
from pathlib import Path
from shutil import copyfile

DAYS = 182
PERSONAL_JOBS = 40
COMPANY_JOBS = 300

CUSTOMERS = {
    "AAL": "Aalborg Shipyard", "BRO": "Brønshøj Dairy", "ESB": "Esbjerg Harbour", "FÅB": "Fåborg Tannery",
    "GRE": "Grenaa Ferries", "HEL": "Helsingør Library", "KØG": "Køge Timber", "LYN": "Lyngby Instruments",
    "MØN": "Møn Windows", "NÆS": "Næstved Paper", "ODE": "Odense Robotics", "RIN": "Ringsted Foods",
    "SKI": "Skive Furniture", "SØN": "Sønderborg Pumps", "VEJ": "Vejle Textiles",
}
TASKS = ["Annual inspection", "Assembly line 2", "Bookkeeping", "Cabling of the new wing", "Control cabinet",
         "Course for operators", "Drawings", "Energy report", "Fault finding", "Installation", "Inventory",
         "Maintenance contract", "Meetings", "Offer and contract", "Pump station", "Purchasing", "Quality audit",
         "Replacement of sensors", "Safety review", "Spare parts", "Telephone support", "Test and handover"]
OWN_JOBS = [("ADM-100", "Administration"), ("ADM-110", "E-mail and telephone"), ("ADM-120", "Staff meeting"),
            ("ADM-200", "Travel"), ("ADM-300", "Training"), ("ADM-900", "Doctor and dentist")]
NOTES = ["Keys are with Søren at the gate.", "Send the revised drawing before Friday.",
         "Counter reading 48 213. The meter in the east cellar is hard to reach: bring the short ladder.",
         "Asked for a second pump; waits for an answer.", "Invoice two hours of travel.",
         "Bærbar computer left in room 2.14.", "The old cabinet has no drawing. Photographs are in the shared folder, "
         "sorted by terminal row; the labels were wrong on rows 7 and 8.", "Handover went well.",
         "Ask Ærø branch for their spare sensors.", "Next visit in six weeks."]
STATUSES = ["At a customer", "Home office", "Lunch, back at 12:30", "On holiday", "In a meeting"]


def days(moment):
    """A point in time as the data files hold it."""
    return (moment - datetime(1899, 12, 30)) / timedelta(days=1)


def company_jobs(chance):
    jobs = [(f"{customer}-{101 + 10 * number}", f"{name}, {task.lower()}")
            for customer, name in CUSTOMERS.items() for number, task in enumerate(TASKS)]
    return sorted(chance.sample(jobs, COMPANY_JOBS))


def working_day(chance, day, jobs):
    """The rows of one day: from the morning to the afternoon, with a break for lunch."""
    now = datetime(day.year, day.month, day.day, 7) + timedelta(seconds=chance.randint(20 * 60, 110 * 60))
    end = now + timedelta(seconds=chance.randint(7 * 3600, 9 * 3600))
    lunch = datetime(day.year, day.month, day.day, 11, 30) + timedelta(seconds=chance.randint(0, 3600))
    had_lunch = False
    while now < end:
        stop = now + timedelta(seconds=chance.randint(10 * 60, 200 * 60))
        if not had_lunch and stop >= lunch:
            stop = max(lunch, now + timedelta(minutes=5))
        if end - stop < timedelta(minutes=15):
            stop = max(end, now + timedelta(minutes=5))
        yield (*chance.choice(jobs), days(now), days(stop))
        now = stop + timedelta(seconds=chance.randint(0, 90))
        if not had_lunch and stop >= lunch:
            had_lunch = True
            now = stop + timedelta(seconds=chance.randint(25 * 60, 35 * 60))


def time_rows(chance, today, personal):
    favourites = personal[:]
    for back in range(DAYS, 0, -1):
        day = today - timedelta(days=back)
        if day.weekday() == 0:  # each week has its handful of jobs
            favourites = chance.sample(personal, 7) + OWN_JOBS[:2]
        if day.weekday() < 5 and chance.random() > 0.06:
            yield from working_day(chance, day, favourites)


def notes(chance, today, personal):
    for number, text in enumerate(NOTES):
        day = today - timedelta(days=DAYS - 15 * number)
        separator = " - " if len(text) < 51 else "\r\n"
        yield chance.choice(personal)[0], f"{day:%Y.%m.%d}{separator}{text}"


def make(folder, name, template, inserts):
    """Makes one file unless it is there, complete or not at all."""
    target = folder / name
    if target.exists():
        print(f"{name} is there already and is kept")
        return
    unfinished = folder / (name + ".new")
    copyfile(folder / template, unfinished)
    with sqlite3.connect(unfinished) as database:
        for statement, rows in inserts:
            database.executemany(statement, rows)
    database.close()
    unfinished.rename(target)
    print(f"{name} made")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = Path(sys.argv[1])
    chance = random.Random(1961)
    today = date.today()
    login = pwd.getpwuid(os.geteuid()).pw_name.strip().upper()

    company = company_jobs(chance)
    personal = sorted(chance.sample(company, PERSONAL_JOBS - len(OWN_JOBS)) + OWN_JOBS)
    rows = list(time_rows(chance, today, personal))
    add_jobs = "INSERT INTO Projects (JobID, JobName) VALUES (?, ?)"

    make(folder, "Jobs.mdb", "Blank Jobs.mdb", [(add_jobs, company)])
    make(folder, f"{login} Stemp.mdb", "blank Stemp.mdb", [
        (add_jobs, personal),
        ("INSERT INTO NotesList (JobID, Note) VALUES (?, ?)", notes(chance, today, personal)),
        ("INSERT INTO PersonalStatus (Status) VALUES (?)", [(status,) for status in STATUSES])])
    make(folder, f"{login}.mdb", "Blank.mdb", [
        ("INSERT INTO Stemp (JobID, JobName, StempInTime, StempOutTime) VALUES (?, ?, ?, ?)", rows)])


if __name__ == "__main__":
    main()
