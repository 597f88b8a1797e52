# Independent transcription of cross-approximate entropy, written from the method's
# description (not from the program's code), run once with python3 to give the expected
# values in tests/stats/xapen_test.cpp. Templates of length m in A and B, distance the
# largest absolute difference, match when distance <= r, ln(c/K) per A template with c = 0
# taken as 0.5, Phi(m) = mean over the K A templates, X-ApEn(m) = Phi(m) - Phi(m+1).
# Hits: matches counted by lag j - i for m = 1 and m = 2.
import math

def xapen(a, b, r):
    n = len(a)
    phi = []
    hits = [{}, {}]
    for m in (1, 2, 3):
        k = n - m + 1
        total = 0.0
        for i in range(k):
            c = 0
            for j in range(k):
                if max(abs(a[i + e] - b[j + e]) for e in range(m)) <= r:
                    c += 1
                    if m <= 2:
                        hits[m - 1][j - i] = hits[m - 1].get(j - i, 0) + 1
            total += math.log((c if c > 0 else 0.5) / k)
        phi.append(total / k)
    return phi, [phi[0] - phi[1], phi[1] - phi[2]], hits

a = [1.0, 3.0, 2.0, 5.0, 4.0, 4.5, 1.5, 2.5, 3.5, 0.5]
b = [2.0, 2.5, 4.0, 1.0, 5.5, 3.0, 3.0, 0.0, 2.0, 4.5]
for r in (0.5, 1.0):
    phi, x, hits = xapen(a, b, r)
    print(f"r={r} phi={[repr(p) for p in phi]} xapen={[repr(v) for v in x]}")
    for m in (0, 1):
        print(f"  hits m_index={m}:", sorted(hits[m].items()))
