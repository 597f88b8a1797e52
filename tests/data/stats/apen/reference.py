#!/usr/bin/env python3
"""Writes apen_reference.txt: ApEn(1) and ApEn(2) of a few series, computed by a plain
transcription of the definition (every template against every template), independent of
the program's code. Single precision is emulated by rounding through struct 'f'.

Run once: python3 reference.py > apen_reference.txt

Each case is four lines: name and r; the values; the usable flags; ApEn(1) ApEn(2) as
single-precision values written with repr() of their exact double value.
"""
import math
import random
import struct


def f32(v):
    return struct.unpack('f', struct.pack('f', v))[0]


def phi(x, v, r, m):
    n = len(x)
    starts = [i for i in range(n - m + 1) if all(v[i + k] for k in range(m))]
    total = 0.0
    contributing = 0
    for i in starts:
        matches = 0
        for j in starts:
            if all(abs(f32(x[i + k] - x[j + k])) <= r for k in range(m)):
                matches += 1
        if matches > 0:
            cr = f32(f32(matches) / f32(len(starts)))
            total += math.log(cr)
            contributing += 1
    return total / contributing if contributing else 0.0


def apen(x, v, r):
    p1, p2, p3 = (phi(x, v, r, m) for m in (1, 2, 3))
    return f32(p1 - p2), f32(p2 - p3)


def cases():
    rng = random.Random(20240607)
    yield 'pulsatile', f32(0.5), [f32(3 + 2 * math.sin(i / 3.0) + rng.gauss(0, 0.4)) for i in range(60)], [1] * 60
    gaps = [0 if i in (7, 8, 30) else 1 for i in range(50)]
    yield 'with_missing', f32(0.3), [f32(rng.uniform(0, 2)) for _ in range(50)], gaps
    yield 'ties_r0', f32(0.0), [float(rng.randint(0, 3)) for _ in range(80)], [1] * 80
    yield 'ties_r1', f32(1.0), [float(rng.randint(0, 5)) for _ in range(80)], [1] * 80
    yield 'random_walk', f32(0.2), [f32(sum(rng.gauss(0, 1) for _ in range(k))) for k in range(120)], [1] * 120


for name, r, x, v in cases():
    a1, a2 = apen(x, v, r)
    print(name, repr(r))
    print(' '.join(repr(f) for f in x))
    print(' '.join(str(f) for f in v))
    print(repr(a1), repr(a2))
