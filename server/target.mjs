// What can be asked for, and what the answer has to be: what the command line answers, with the token of the request.
import { readFileSync, writeFileSync } from 'node:fs'
import { freshToken } from './client.mjs'
import { put } from './moving.mjs'
import { pageHosts, root } from './site.mjs'

const MARK = '0123456789AB' // a token's place, and as long

export class Target {
  times = []
  #wrong = 0
  #wanted = []

  constructor(name, host, path, { form, weight = 10, cut = false } = {}) {
    Object.assign(this, { name, host, path, form, weight, cut })
  }

  /** Takes an answer as one of those that are right. */
  want({ status, type, body }) {
    this.#wanted.push({ status, type, parts: body.split(MARK) })
    return this
  }

  async learn(commandLine) {
    const answer = await commandLine.ask(this.request(MARK))
    if (this.host !== 'shop' && !answer.body.includes(MARK)) throw new Error(`${this.name}: the token is not in ${answer.body}`)
    this.want(answer)
  }

  request(token) {
    const put = text => text?.replace(MARK, token)
    return { host: this.host, path: put(this.path), form: put(this.form) }
  }

  async ask(client) {
    const token = freshToken()
    const answer = await client.ask(this.request(token))
    this.times.push(answer.ms)
    if (!this.#right(answer, token)) this.#keep(answer)
  }

  #right(answer, token) {
    const wanted = this.#wanted.filter(({ status, type }) => status === answer.status && type === answer.type)
    const bodies = wanted.map(({ parts }) => parts.join(token))
    return bodies.includes(answer.body) || (this.cut && beginsAs(answer.body, ...bodies))
  }

  #keep({ status, type, body }) {
    if (this.#wrong++ === 0) writeFileSync(`${root}/wrong/${this.name.replaceAll('/', '-')}`, `${status} ${type}\n\n${body}`, 'latin1')
  }

  get fault() {
    if (this.times.length === 0) return 'never answered'
    return this.#wrong > 0 ? `${this.#wrong} wrong answers, the first in build/server/wrong` : undefined
  }
}

/** Is BODY a beginning of the page, with what stands behind it even if the template is empty? */
function beginsAs(body, page, behind) {
  return body.endsWith(behind) && page.startsWith(body.slice(0, body.length - behind.length))
}

const weights = { heavy: 2, settings: 3, slow: 0.1 }
export const pathOf = (name, token = MARK) => `/?page=${encodeURIComponent(name)}&token=${token}`

const pageOf = (group, host) => name =>
  new Target(`${host}: ${name}`, host, pathOf(name), {
    weight: weights[group] ?? 10, cut: name === 'a template that is cut',
  })

const shop = [
  new Target('shop: catalogue', 'shop', '/'),
  new Target('shop: search', 'shop', `/?query=${MARK}`),
  new Target('shop: product', 'shop', '/product?item=notebook'),
  new Target('shop: incomplete entry', 'shop', '/guestbook', { form: `words=${MARK}` }),
  new Target('shop: nothing there', 'shop', `/${MARK}`),
]

const styleSheet = new Target('shop: style sheet', 'shop', '/shop.css')
  .want({ status: 200, type: 'text/css', body: readFileSync('examples/shop/public/shop.css', 'latin1') })

/** What there is to ask for, with the answers of the command line: for the load, and without the extension. */
export async function learnTargets(commandLine) {
  const { settings, moving, limits, ...groups } = JSON.parse((await commandLine.ask({ host: 'plain', path: '/' })).body)
  const pages = Object.entries(groups).flatMap(([group, names]) => names.map(pageOf(group, 'plain')))
  const bySettings = Object.keys(pageHosts).flatMap(host => settings.map(pageOf('settings', host)))
  const moved = moving.map(pageOf('moving', 'plain'))
  const targets = {
    mixed: [...shop, ...pages, ...bySettings, ...moved],
    alone: [new Target('PHP alone', 'plain', `/alone.php?token=${MARK}`)],
  }
  put(0)
  for (const target of Object.values(targets).flat()) await target.learn(commandLine)
  put(1)
  for (const target of moved) await target.learn(commandLine)
  return { ...targets, mixed: [...targets.mixed, styleSheet] }
}

/** Deals the targets in random order, each as often as it weighs. */
export function* deal(all) {
  for (;;) {
    const deck = all.flatMap(target => Array(weigh(target.weight)).fill(target))
    while (deck.length > 0) yield deck.splice(Math.floor(Math.random() * deck.length), 1)[0]
  }
}

const weigh = weight => Math.floor(weight + Math.random())
