"""The rules of the game, stated a second time and independently of the program, one timer tick at a time.

An App is the whole program as its stored record shows it: give it the player's actions and let time
pass, and it keeps the record after every timer message. compare.py compares the program with it.
"""

import ctypes
import struct

from names import NUMBERS

libc = ctypes.CDLL(None)  # the piece supply draws from the C library's rand, as the program's does

NONE, TITLE, STARTING, PLAYING = range(4)  # states of the app
RUNNING, PAUSED, ENDING, OVER = range(4)  # states of a game
FALLING, LANDED, CLEARING = range(3)  # phases of a running game
MARATHON, FORTY_LINES, ULTRA_2, ULTRA_3 = range(4)
LEFT, RIGHT, HARD_DROP, SOFT_DROP, PAUSE, HOLD, ROTATE_LEFT, ROTATE_RIGHT = range(8)
NEVER = float('inf')
TITLE_BAR = 26  # rows of the screen above the window
KEYS = (37, 39, 38, 40, 193, 194, 195, 196)
ROTATION_SOUND, LOCK_SOUND, ROWS_SOUND, LEVEL_SOUND, SHIFT_SOUND = range(5)


def pairs(text):
    """Reads a text of numbers as (x, y) pairs."""
    numbers = [int(word) for word in text.split()]
    return list(zip(numbers[::2], numbers[1::2]))


# For each piece, J L S O Z T I, its cells in the four rotations.
CELLS = [[pairs(rotation) for rotation in piece.split('|')] for piece in (
    '0 1 1 1 2 1 0 0 | 1 0 1 1 1 2 2 0 | 0 1 1 1 2 1 2 2 | 1 0 1 1 1 2 0 2',
    '0 1 1 1 2 1 2 0 | 1 0 1 1 1 2 2 2 | 0 1 1 1 2 1 0 2 | 1 0 1 1 1 2 0 0',
    '0 2 1 2 1 1 2 1 | 1 0 1 1 2 1 2 2 | 0 1 1 1 1 0 2 0 | 0 0 0 1 1 1 1 2',
    '1 0 2 0 1 1 2 1 | 1 0 2 0 1 1 2 1 | 1 0 2 0 1 1 2 1 | 1 0 2 0 1 1 2 1',
    '0 1 1 1 1 2 2 2 | 2 0 2 1 1 1 1 2 | 0 0 1 0 1 1 2 1 | 1 0 1 1 0 1 0 2',
    '2 1 1 0 1 1 0 1 | 2 1 1 0 1 1 1 2 | 2 1 0 1 1 1 1 2 | 1 0 0 1 1 1 1 2',
    '1 2 2 2 3 2 4 2 | 2 1 2 2 2 3 2 4 | 0 2 1 2 2 2 3 2 | 2 0 2 1 2 2 2 3')]
# The places tried by a turn to the right out of each rotation.
USUAL_KICKS = [pairs(kicks) for kicks in (
    '0 0 -1 0 -1 -1 0 2 -1 2', '0 0 1 0 1 1 0 -2 1 -2', '0 0 1 0 1 -1 0 2 1 2', '0 0 -1 0 -1 1 0 -2 -1 -2')]
I_KICKS = [pairs(kicks) for kicks in (
    '1 0 -1 0 2 0 -1 1 2 -2', '0 1 -1 1 2 1 -1 -1 2 2', '-1 0 1 0 -2 0 1 -1 -2 2', '0 -1 1 -1 -2 -1 1 1 -2 -2')]
KICKS = [USUAL_KICKS] * 3 + [[[(0, 0)] * 5] * 4] + [USUAL_KICKS] * 2 + [I_KICKS]
SPAWN = [(3, -1, 0), (3, -1, 0), (3, -2, 0), (3, -1, 0), (3, -2, 0), (3, -2, 2), (2, -2, 0)]


def signed(number):
    """A number as the record holds it, in 32 bits."""
    return (number + 2**31) % 2**32 - 2**31


def named(prefix, text):
    """Fields as (name, format), from a text of formats and names by turns."""
    words = text.split()
    return [(prefix + name, form) for form, name in zip(words[::2], words[1::2])]


WELL = named('', '''8x _ i cellWidth i cellHeight i boardLeft i boardTop i state 400s cells 20s fullRows
    i x i y i prevX i prevY i prevRotation i type i rotation i ghostX i ghostY i prevGhostX
    i prevGhostY B holdUsed 3x _ i count''')
GAME = named('', '''i holdType i phase i now i deadline i clearFrame i shiftNext B shiftRepeating 3x _
    i softDropNext i gravityMs i lockDelayMs i backdrop i lines i level i score i timeLeft I dirty
    i soundEvent i mode i startLevel i queueLength B holdEnabled B ghostEnabled B soundEnabled
    B backToBack B reserved 3x _''')
FIELDS = named('', 'i appState i requestedState') + WELL
FIELDS += [(f'queue[{i}]', 'i') for i in range(16)] + GAME
for i in range(8):
    FIELDS += named(f'input[{i}].', 'I keyCode B down B wasDown 2x _')
FIELDS += named('title.', 'i page i pageDeadline 4x _ i selectedMode i selectedLevel')
for i in range(6):
    FIELDS += named(f'highScores[{i}].', 'i mode')
    for rank in range(8):
        FIELDS += named(f'highScores[{i}][{rank}].', 'i score i lines i level 24s name')
RECORD = struct.Struct('<' + ''.join(form for _, form in FIELDS))
NAMES = [name for name, form in FIELDS if 'x' not in form]


class Buttons:
    """The eight buttons. A poll also sees a key that went down and up again since the last poll."""

    def __init__(self):
        self.isDown, self.pressedSince = [False] * 8, [False] * 8
        self.down, self.wasDown = [False] * 8, [False] * 8

    def key(self, action, down):
        self.pressedSince[action] |= down and not self.isDown[action]
        self.isDown[action] = down

    def poll(self):
        self.wasDown = self.down
        self.down = [a or b for a, b in zip(self.isDown, self.pressedSince)]
        self.pressedSince = [False] * 8

    def pressed(self, action):
        return self.down[action] and not self.wasDown[action]


class Session:
    """One game."""

    def __init__(self, app):
        self.app = app
        for name, _ in WELL + GAME:
            setattr(self, name, 0)
        self.cellWidth = self.cellHeight = self.boardTop = 11
        self.boardLeft = 22
        self.now = app.clock
        self.soundEvent = -1
        self.queueLength = 6
        self.holdEnabled = self.ghostEnabled = self.soundEnabled = True
        self.well, self.full, self.queue = {}, [], []  # the well: the colour at (column, row)
        self.addBag()

    # The well and the supply of pieces

    def fits(self, x, y, rotation):
        places = [(x + dx, y + dy) for dx, dy in CELLS[self.type][rotation]]
        return all(0 <= column <= 9 and row <= 19 and (column, row) not in self.well for column, row in places)

    def canFall(self):
        return self.fits(self.x, self.y + 1, self.rotation)

    def lockPiece(self):
        for dx, dy in CELLS[self.type][self.rotation]:
            if self.y + dy >= 0:
                self.well[self.x + dx, self.y + dy] = self.type

    def markFullRows(self):
        """Returns whether there are any. The top row never counts."""
        self.full = [r for r in range(1, 20) if all((c, r) in self.well for c in range(10))]
        return bool(self.full)

    def removeFullRows(self):
        for row in self.full:
            self.well = {(c, r + (r < row)): colour for (c, r), colour in self.well.items() if r != row}
        count, self.full = len(self.full), []
        return count

    def addBag(self):
        if len(self.queue) + 7 <= 16:
            bag = list(range(7))
            for i in range(7):
                j = libc.rand() % 6
                j = i + 1 if j == i else j
                bag[i], bag[j] = bag[j], bag[i]
            self.queue += bag

    def takeNext(self):
        self.addBag()
        self.type = self.queue.pop(0)
        self.x, self.y, self.rotation = SPAWN[self.type]
        self.holdUsed = False

    # A game and its time

    def newGame(self):
        self.well = {}
        self.score = self.backToBack = 0
        self.setLevel(self.startLevel)
        self.lines = 40 if self.mode == FORTY_LINES else 0
        self.timeLeft = {ULTRA_2: 4800, ULTRA_3: 7200}.get(self.mode, 0)
        self.prevGhostX = self.prevGhostY = -999
        self.queue = []
        self.takeNext()
        self.holdType = -1
        self.lockDelayMs = 1000
        self.phase = FALLING
        self.resume()

    def setLevel(self, level):
        self.level = level
        self.gravityMs = 900 - 80 * min(level, 9)
        self.backdrop = level // 2 % 3

    def resume(self):
        self.state = RUNNING
        self.app.setTimer(25)
        self.now = self.app.clock
        self.freshTiming()

    def pause(self):
        self.state = PAUSED
        self.freshTiming()

    def freshTiming(self):
        self.dirty = 511
        self.wait(self.gravityMs)
        self.shiftNext = self.shiftRepeating = self.softDropNext = 0

    def wait(self, ms):
        self.deadline = signed(self.now + ms)

    def isDue(self):
        return signed(self.now - self.deadline) >= 0

    def mayAct(self, earliest):
        return earliest == 0 or signed(self.now - earliest) >= 0

    def tick(self, buttons):
        self.soundEvent = -1
        self.now = self.app.clock
        buttons.poll()
        if buttons.pressed(PAUSE):
            if self.state == PAUSED:
                self.resume()
            elif self.state == RUNNING:
                self.pause()
        if self.state == RUNNING:
            self.update(buttons)
        self.dirty = 0  # all that changed has been painted
        if self.state == RUNNING:
            self.prevX, self.prevY, self.prevRotation = self.x, self.y, self.rotation
            self.prevGhostX, self.prevGhostY = self.ghostX, self.ghostY
        if self.state == ENDING and self.isDue() and self.now != self.deadline:
            self.state = OVER

    def update(self, buttons):
        spawn = False
        if self.phase == LANDED and self.isDue():
            self.lockPiece()
            if self.markFullRows():
                self.phase = CLEARING
                self.soundEvent = ROWS_SOUND
                self.wait(200)
            else:
                self.soundEvent = LOCK_SOUND
                spawn = True
        if self.phase == CLEARING and self.isDue():
            self.rowsCleared(self.removeFullRows())
            if self.state == ENDING:
                return
            spawn = True
        if spawn:
            self.takeNext()
            if not self.fits(self.x, self.y, self.rotation):
                self.soundEvent = LOCK_SOUND
                self.end()
                return
            self.phase = FALLING
            self.wait(self.gravityMs)
        self.act(buttons)
        if self.phase == FALLING and not self.canFall():
            self.phase = LANDED
            self.wait(self.lockDelayMs)
        elif self.phase == LANDED and self.canFall():
            self.phase = FALLING
            self.wait(self.gravityMs)
        if self.phase == CLEARING:  # frames 0 to 4, 40 ms each; the division goes toward zero
            self.clearFrame = 4 + int(5 * signed(self.now - self.deadline) / 200)
        if self.mode in (ULTRA_2, ULTRA_3):
            self.timeLeft -= 1
            if self.timeLeft <= 0:
                self.end()
                return
        self.ghostX, self.ghostY = self.x, self.y
        while self.fits(self.x, self.ghostY + 1, self.rotation):
            self.ghostY += 1

    def end(self):
        self.state = ENDING
        self.wait(3000)

    def rowsCleared(self, n):
        if self.mode == FORTY_LINES:
            self.lines = max(self.lines - n, 0)
            if self.lines == 0:
                self.end()
        else:
            self.lines += n
        points = (0, 40, 100, 300, 1800 if self.backToBack else 1200)[n]
        self.backToBack = n == 4
        self.score += points * (self.level + 1)
        target = sum(10 * (level + 1) for level in range(self.startLevel, self.level + 1))
        if self.mode == MARATHON and self.lines >= target:
            self.setLevel(self.level + 1)
            self.soundEvent = LEVEL_SOUND

    # The player's actions, in the order in which a tick tries them

    def act(self, buttons):
        left, right = buttons.down[LEFT], buttons.down[RIGHT]
        if not left and not right:
            self.shiftNext = self.shiftRepeating = 0
        if self.phase == CLEARING:
            return  # nothing moves then
        if buttons.down[SOFT_DROP]:
            if self.mayAct(self.softDropNext) and self.stepDown():
                self.score += 1
        elif self.isDue():
            self.stepDown()
        if buttons.pressed(HARD_DROP):
            self.hardDrop()
        if buttons.pressed(HOLD) and self.holdEnabled and not self.holdUsed:
            self.hold()
        if left or right:
            self.shift(-1 if left else 1)
        if buttons.pressed(ROTATE_RIGHT):
            self.turn((self.rotation + 1) % 4, KICKS[self.type][self.rotation])
        if buttons.pressed(ROTATE_LEFT):
            target = (self.rotation + 3) % 4
            self.turn(target, [(-dx, -dy) for dx, dy in KICKS[self.type][target]])

    def stepDown(self):
        if not self.canFall():
            return False
        self.y += 1
        self.wait(self.gravityMs)
        self.softDropNext = signed(self.now + 50)
        return True

    def hardDrop(self):
        while self.canFall():
            self.y += 1
            self.score += 2
        self.phase = LANDED
        self.wait(0)

    def hold(self):
        held, self.holdType = self.holdType, self.type
        if held >= 0:
            self.type = held
            self.x, self.y, self.rotation = SPAWN[held]
        else:
            self.takeNext()
        self.holdUsed = True
        self.wait(self.gravityMs)

    def shift(self, dx):
        if self.mayAct(self.shiftNext) and self.fits(self.x + dx, self.y, self.rotation):
            self.x += dx
            self.shiftNext = signed(self.now + (100 if self.shiftRepeating else 250))
            self.shiftRepeating = True
            self.soundEvent = SHIFT_SOUND

    def turn(self, rotation, kicks):
        for dx, dy in kicks:
            if self.fits(self.x + dx, self.y + dy, rotation):
                self.x, self.y, self.rotation = self.x + dx, self.y + dy, rotation
                self.soundEvent = ROTATION_SOUND
                return


def defaults(shorter):
    """A table of high scores as (score, lines, level, name)."""
    names = 'Pell Rix Wend Odalys Quin Fenn Garo Nimsa'.split()
    scores = [7000, 6000, 5000] if shorter else [10000, 8000, 6000]
    lines = [40, 40, 40, 40] if shorter else [80, 70, 60, 50]
    return list(zip(scores + [4000, 3000, 2000, 1000, 500], lines + [40, 30, 20, 10], range(8, 0, -1), names))


class App:
    """The program: its screens, its timer and its clock, in 32-bit milliseconds.

    Operations that are named like commands of the pilot do the same as those.
    """

    def __init__(self, clock):
        self.clock = signed(clock)
        self.records = []  # after every timer message: the clock and the record
        self.asking = False  # for the name of a new high score
        self.typed = ''
        self.buttons = Buttons()
        libc.srand(1)  # as the library starts
        self.session = Session(self)
        libc.srand(ctypes.c_uint(clock))
        self.tables = [defaults(shorter=mode == FORTY_LINES) for mode in range(6)]
        self.enterTitle()

    def record(self):
        """The values of the stored record, as NAMES lists them."""
        session, buttons = self.session, self.buttons
        session.count = len(session.queue)
        cells = bytearray(400)
        for (column, row), colour in session.well.items():
            cells[20 * row + 2 * column:20 * row + 2 * column + 2] = 1, colour
        session.cells = bytes(cells)
        session.fullRows = bytes(row in session.full for row in range(20))
        well = [getattr(session, name) for name, _ in WELL if name != '_']
        game = [getattr(session, name) for name, _ in GAME if name != '_']
        slots = zip(KEYS, buttons.down, buttons.wasDown)
        tables = [[mode, *sum(table, ())] for mode, table in enumerate(self.tables)]
        return [self.state, self.state, *well, *session.queue, *[0] * (16 - session.count), *game, *sum(slots, ()),
                self.page, self.pageDeadline, self.selectedMode, self.selectedLevel, *sum(tables, [])]

    # Keys and time

    def key(self, code, way):
        self.buttons.key(KEYS.index(code), way == 'down')

    def press(self, code, ms):
        self.key(code, 'down')
        self.wait(ms)
        self.key(code, 'up')

    def setTimer(self, period):
        self.period = self.untilTimer = period

    def wait(self, ms):
        while self.untilTimer <= ms:
            ms -= self.untilTimer
            self.clock = signed(self.clock + self.untilTimer)
            self.untilTimer = self.period
            self.timer()
        self.clock = signed(self.clock + ms)
        self.untilTimer -= ms

    def timer(self):
        if self.state == PLAYING:
            self.session.tick(self.buttons)
            if self.session.state == OVER:
                self.setTimer(NEVER)
                self.asking = self.session.score > self.tables[self.session.mode][7][0]
                if not self.asking:
                    self.session.resume()
                    self.enterTitle()
        elif signed(self.clock - self.pageDeadline) > 0:
            self.showPage(1 - self.page)
        if not self.asking:
            self.records.append((self.clock, self.record()))

    # The title screen

    def enterTitle(self):
        self.state = TITLE
        self.selectedMode, self.selectedLevel = self.session.mode, self.session.startLevel
        self.back()

    def showPage(self, page):
        self.page = page
        self.pageDeadline = signed(self.clock + 10000)

    def tap(self, x, y):
        y -= TITLE_BAR
        session = self.session
        if self.state == PLAYING:
            if session.state == PAUSED:
                session.resume()
            elif session.state == RUNNING:
                session.pause()
                session.dirty = 0
            return
        column, row = (x - 15) // 105, (y - 115) // 20
        if self.page == 1:
            self.showPage(0)
        elif 0 <= row <= 1 and 0 <= column <= 1 and (x - 15) % 105 < 104 and (y - 115) % 20 < 19:
            session.mode = 2 * row + column
        elif 165 <= y < 184 and 0 <= (x - 15) // 21 <= 9 and (x - 15) % 21 < 20:
            session.startLevel = (x - 15) // 21
        elif 200 <= y < 230 and 70 <= x < 170:
            self.state = PLAYING
            session.newGame()
            session.tick(self.buttons)
        self.selectedMode, self.selectedLevel = session.mode, session.startLevel

    def away(self):
        if self.state == TITLE:
            self.setTimer(NEVER)
        elif self.session.state == RUNNING:
            self.session.pause()

    def back(self):
        if self.state == TITLE:
            self.showPage(0)
            self.setTimer(500)

    # The name of a new high score

    def type(self, text):
        self.typed += text

    def click(self, button):
        """OK takes the name, unless it is empty; Cancel does not."""
        session, name = self.session, self.typed[:1].upper() + self.typed[1:11]
        if button == NUMBERS['IDOK'] and name:
            table = self.tables[session.mode]
            rank = sum(entry[0] >= session.score for entry in table)
            lines = 40 - session.lines if session.mode == FORTY_LINES else session.lines
            table[rank:] = [(session.score, lines, session.level, name)] + table[rank:7]
        self.asking, self.typed = False, ''
        session.resume()
        self.enterTitle()
        self.records.append((self.clock, self.record()))
