// Servers started by this process, which end with it.
import { spawn } from 'node:child_process'
import { once } from 'node:events'
import net from 'node:net'
import { setTimeout as sleep } from 'node:timers/promises'

const programs = []
process.on('exit', () => programs.forEach(program => program.kill()))

export async function freePort() {
  const server = net.createServer().listen(0, '127.0.0.1')
  await once(server, 'listening')
  const { port } = server.address()
  await new Promise(closed => server.close(closed))
  return port
}

/** Starts a server and waits until it listens. */
export async function launch(command, options, port, stdio) {
  const program = spawn(command, options, { stdio })
  programs.push(program)
  while (!await connects(port)) {
    const ended = program.signalCode ?? program.exitCode
    if (ended !== null) throw new Error(`${command} ended at once, with ${ended}`)
    await sleep(20)
  }
  return program
}

function connects(port) {
  return new Promise(found => {
    const socket = net.connect(port, '127.0.0.1')
    socket.on('error', () => found(false))
    socket.on('connect', () => {
      socket.destroy()
      found(true)
    })
  })
}
