// The load and its checks: a line for every kind of page and for every check.
import { setTimeout as sleep } from 'node:timers/promises'
import { Apache } from './apache.mjs'
import { Client, freshToken } from './client.mjs'
import { CommandLine } from './command-line.mjs'
import { keepMoving } from './moving.mjs'
import { count, megabytes, milliseconds, verdict } from './report.mjs'
import { setStack } from './site.mjs'
import { deal, learnTargets, pathOf } from './target.mjs'

const CONNECTIONS = 24 // fewer than Apache has threads
const WARM_UP = 5 // seconds, until every thread has had the pages that take most memory
const HANG_UPS = 0.02 // of all requests
const STACKS = [128, 256, 512, 2048, 8192].map(kilobytes => kilobytes << 10) // one for each restart
const GROWTH = 3 << 20 // what the allocators of all threads may still take, in bytes
const RESIDENT = 250 << 20 // what a page may take that has a memory_limit of 64 MB, in bytes
const LIMITS = { // what the pages of these names end with
  'a page without an end': 'Maximum execution time of 1 second exceeded',
  'a page of gigabytes': 'Allowed memory size of 67108864 bytes exhausted',
  'a value that escaping makes six times as long': 'Allowed memory size of 67108864 bytes exhausted',
}

/** Load until nobody is connected any more; tells the errors of connections, and how many clients hung up. */
async function load(port, targets, seconds, meanwhile = async () => {}) {
  const client = new Client(port, CONNECTIONS)
  const deck = deal(targets)
  const lost = []
  let hungUp = 0
  const exchange = async () => {
    const target = deck.next().value
    if (Math.random() > HANG_UPS) return target.ask(client).catch(error => lost.push(error))
    ++hungUp
    return client.abandon(target.request(freshToken()))
  }
  await Promise.all([client.load(seconds * 1000, exchange), meanwhile()])
  client.close()
  await sleep(500)
  return { lost, hungUp }
}

const answers = targets => targets.reduce((sum, { times }) => sum + times.length, 0)

async function steady(apache, targets, seconds) {
  const heavy = targets.filter(({ weight }) => weight < 10)
  const warmUp = await load(apache.port, heavy, WARM_UP)
  const start = apache.state
  const first = await load(apache.port, targets, seconds / 2)
  const half = apache.state
  const second = await load(apache.port, targets, seconds / 2)
  const end = apache.state
  const lost = [warmUp, first, second].flatMap(({ lost }) => lost)
  verdict('every request is answered', lost.length === 0,
    lost[0]?.message ?? `${count(answers(targets))}, and ${count(first.hungUp + second.hungUp)} clients hung up`)
  verdict('one process answers them all', `${start.processes}` === `${end.processes}`, `process ${start.processes}, then ${end.processes}`)
  verdict('memory does not grow in the second half', end.resident < half.resident + GROWTH, `${megabytes(half.resident)}, then ${megabytes(end.resident)}`)
  verdict('no file stays open', end.openFiles <= start.openFiles, `${start.openFiles}, then ${end.openFiles}`)
}

/** One after the other, in a server that does nothing else. */
async function limits(apache) {
  const client = new Client(apache.port, 1)
  for (const [name, message] of Object.entries(LIMITS)) {
    apache.forgetPeak()
    const { body, ms } = await client.ask({ host: 'plain', path: pathOf(name) }).catch(({ message }) => ({ body: message, ms: NaN }))
    const good = body.includes(message) && apache.peak < RESIDENT
    verdict(name, good, `after ${(ms / 1000).toFixed(1)} s, ${megabytes(apache.peak)} resident: ${body.trim().slice(0, 60)} …`)
  }
  client.close()
}

function restarting(apache) {
  return async () => {
    for (const stack of STACKS) {
      setStack(stack)
      apache.restartGracefully()
      await sleep(900)
    }
  }
}

/** Apache itself closes kept connections at a restart, each once, and some while a request is on its way to it. */
async function restarts(apache, targets, lostAlone) {
  const before = answers(targets)
  const { lost } = await load(apache.port, targets, 5, restarting(apache))
  const torn = lost.find(({ unanswered }) => !unanswered)
  const good = !torn && lost.length <= STACKS.length * CONNECTIONS
  verdict(`${STACKS.length} graceful restarts, stacks of 128 KB to 8 MB`, good,
    torn?.message ?? `${count(answers(targets) - before)} answers, ${lost.length} connections lost, ${lostAlone.length} without the extension`)
  const left = await processesLeft(apache)
  verdict('the processes before a restart end', left === 1, `${left} left`)
}

async function processesLeft(apache) {
  for (let wait = 0; wait < 50 && apache.processes.length > 1; ++wait) await sleep(200)
  return apache.processes.length
}

/** The connections that are lost when Apache restarts without the extension. */
async function control(targets) {
  const apache = await Apache.start('without')
  const { lost } = await load(apache.port, targets, 5, restarting(apache))
  await apache.stop()
  return lost
}

const isNotice = line => line === '' || (/:notice\]/.test(line) && !/exit signal/.test(line))

export async function run(seconds) {
  const commandLine = await CommandLine.start()
  const targets = await learnTargets(commandLine)
  commandLine.stop()
  const lostAlone = await control(targets.alone)
  const apache = await Apache.start()
  const rest = keepMoving()
  await steady(apache, targets.mixed, seconds)
  await limits(apache)
  await restarts(apache, targets.mixed, lostAlone)
  rest()
  await apache.stop()
  for (const { name, fault, times } of targets.mixed) {
    verdict(name, !fault, fault ?? `${count(times.length).padStart(6)} answers, p50 ${milliseconds(times, 0.5)}, p99 ${milliseconds(times, 0.99)}`)
  }
  const complaint = apache.log.split('\n').find(line => !isNotice(line))
  verdict('the error log tells of no crash', !complaint, complaint ?? 'notices only')
}
