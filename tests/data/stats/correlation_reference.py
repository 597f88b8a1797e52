#!/usr/bin/env python3
# Independent reference values for the correlation tests, in plain Python (standard
# library only): sums written out from the definitions, the partial autocorrelations
# by solving the Yule-Walker equations of each order with Gaussian elimination (not by
# the Durbin-Levinson recursion), and Kendall's counts by the O(n^2) pair loop.
# Run once: python3 correlation_reference.py > correlation_reference.txt
import math

A = [3, 1, 4, 1, 5, 9, 2, 6, 5, 3, 5, 8]
B = [2, 7, 1, 8, 2, 8, 1, 8, 2, 8, 4, 5]
MAXLAG = 4
N = len(A)

def mean(x): return sum(x) / len(x)

def cov(x, y, k):  # sum over pairs (x(t), y(t+k)) divided by N
    mx, my = mean(x), mean(y)
    return sum((x[t] - mx) * (y[t + k] - my) for t in range(N) if 0 <= t + k < N) / N

def solve(m, v):
    n = len(v)
    m = [row[:] + [v[i]] for i, row in enumerate(m)]
    for c in range(n):
        p = max(range(c, n), key=lambda r: abs(m[r][c]))
        m[c], m[p] = m[p], m[c]
        for r in range(n):
            if r != c:
                f = m[r][c] / m[c][c]
                m[r] = [a - f * b for a, b in zip(m[r], m[c])]
    return [m[i][n] / m[i][i] for i in range(n)]

def pacf(r, k):  # last coefficient of the order-k Yule-Walker solution
    return solve([[r[abs(i - j)] for j in range(k)] for i in range(k)], r[1:k + 1])[-1]

def kendall(a, b):
    na = nb = s = 0
    for i in range(len(a)):
        for j in range(i + 1, len(a)):
            dx, dy = a[i] - a[j], b[i] - b[j]
            if dx * dy != 0:
                na += 1; nb += 1; s += 1 if dx * dy > 0 else -1
            else:
                na += dx != 0; nb += dy != 0
    return na, nb, s

print("# Written by correlation_reference.py (Python 3 standard library); see that file.")
print("a", *A)
print("b", *B)
print("maxlag", MAXLAG)
for name, x in (("a", A), ("b", B)):
    c0 = cov(x, x, 0)
    r = [cov(x, x, k) / c0 for k in range(MAXLAG + 1)]
    print("mean_" + name, repr(mean(x)), "variance_" + name, repr(c0))
    for k in range(1, MAXLAG + 1):
        se = math.sqrt((N - k) / (N * (N + 2)))
        print("acf_" + name, k, repr(cov(x, x, k)), repr(r[k]), repr(se), repr(pacf(r, k)))
sab = math.sqrt(cov(A, A, 0) * cov(B, B, 0))
for k in range(-MAXLAG, MAXLAG + 1):
    print("ccf", k, repr(cov(A, B, k)), repr(cov(A, B, k) / sab), repr(1 / math.sqrt(N - abs(k))))
for k in range(-MAXLAG, MAXLAG + 1):
    n = N - abs(k)
    pa = [A[t] for t in range(N) if 0 <= t + k < N]
    pb = [B[t + k] for t in range(N) if 0 <= t + k < N]
    na, nb, s = kendall(pa, pb)
    print("kendall", k, na, nb, s, repr(s / math.sqrt(na * nb)),
          repr(math.sqrt((4 * n + 10) / (9 * n * (n - 1)))))
