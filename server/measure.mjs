// What a page costs by zorvel, hand-written PHP and other engines, in turns; the table goes into docs/deploy.md.
import { readFileSync, writeFileSync } from 'node:fs'
import { Apache } from './apache.mjs'
import { Client } from './client.mjs'
import { count, milliseconds } from './report.mjs'

const DOCUMENT = 'docs/deploy.md'
const CONNECTIONS = 8
const ROUNDS = 10
const WARM_UP = 3 // rounds: opcache takes in no file that is younger than two seconds
const ROUND = 1000 // milliseconds
const PAGES = { catalogue: 'The shop’s catalogue, 4 KB', rows: 'A table of 100 rows' }
const ENGINES = { zorvel: 'zorvel', php: 'hand-written PHP', twig: 'Twig', latte: 'Latte', 'no page': 'no page, its data alone' }
const REFERENCES = { '&#039;': "'", '&#39;': "'", '&apos;': "'", '&quot;': '"', '&ndash;': '–', '&eacute;': 'é' }

class Contender {
  times = []
  processor = 0
  seconds = 0

  constructor(engine, page) {
    Object.assign(this, { engine, page, request: { host: 'measure', path: `/?page=${page}&engine=${encodeURIComponent(engine)}` } })
  }

  async round(apache) {
    const client = new Client(apache.port, CONNECTIONS)
    const processor = apache.processorTime
    const started = performance.now()
    await client.load(ROUND, async () => this.times.push((await client.ask(this.request)).ms))
    this.seconds += (performance.now() - started) / 1000
    this.processor += apache.processorTime - processor
    client.close()
  }

  get row() {
    const { times } = this
    return [
      PAGES[this.page], ENGINES[this.engine], count(times.length / this.seconds), milliseconds(times, 0.5),
      milliseconds(times, 0.99), `${Math.round(1000 * this.processor / times.length)} µs`,
    ]
  }
}

/** What a page shows, however blanks, references and a script's text are spelt. */
function shown(html) {
  const text = Buffer.from(html, 'latin1').toString()
  return text.replace(/<script>.*<\/script>/, '').replace(/&[#\w]+;/g, name => REFERENCES[name] ?? name).replace(/\s+/g, '')
}

async function compare(client, contenders) {
  const bodies = await Promise.all(contenders.map(({ request }) => client.ask(request).then(({ body }) => shown(body))))
  const odd = contenders.find((_, i) => bodies[i] !== bodies[0])
  if (odd) throw new Error(`${odd.engine} makes another page of ${odd.page} than ${contenders[0].engine}`)
}

async function measurePage(apache, engines, page) {
  const contenders = engines.map(engine => new Contender(engine, page))
  const client = new Client(apache.port, 1)
  await compare(client, contenders.filter(({ engine }) => engine !== 'no page'))
  client.close()
  for (let round = -WARM_UP; round < ROUNDS; ++round) {
    if (round === 0) contenders.forEach(contender => Object.assign(contender, { times: [], processor: 0, seconds: 0 }))
    for (const contender of contenders) await contender.round(apache)
  }
  return contenders.map(({ row }) => row)
}

export async function measure() {
  const apache = await Apache.start()
  const client = new Client(apache.port, 1)
  const engines = JSON.parse((await client.ask({ host: 'measure', path: '/' })).body)
  client.close()
  const rows = []
  for (const page of Object.keys(PAGES)) rows.push(...await measurePage(apache, engines, page))
  await apache.stop()
  const head = ['Page', 'Made by', 'Requests per second', 'p50', 'p99', 'Processor time']
  const table = [head, ['---', '---', '--:', '--:', '--:', '--:'], ...rows].map(row => `| ${row.join(' | ')} |\n`).join('')
  writeFileSync(DOCUMENT, readFileSync(DOCUMENT, 'utf8').replace(/^\| Page \|(.*\n)+?(?!\|)/m, table))
  console.log(table)
}
