// What is printed: a table of verdicts with their figures.
export function verdict(name, good, figures) {
  console.log(`${good ? 'ok' : 'not ok'} ${name}`.padEnd(52), figures)
}

export const count = number => Math.round(number).toLocaleString('en')
export const megabytes = bytes => `${(bytes / (1 << 20)).toFixed(1)} MB`

/** The time within which a SHARE of all was answered. */
export function milliseconds(times, share) {
  const sorted = times.toSorted((a, b) => a - b)
  return `${sorted[Math.floor(share * (sorted.length - 1))].toFixed(1)} ms`
}
