<?php

// An order as a program holds it: objects with public properties, an enumeration, a date, a list that a generator gives.

declare(strict_types=1);

require_once __DIR__ . '/Order.php';

$order = new Order(
    20417,
    new DateTimeImmutable('2026-11-23 09:30', new DateTimeZone('Europe/Berlin')),
    new Customer('Tom & Ann', 'tom@example.org', null, 'secret'),
    Shipping::Post,
    [new Line('Tea', 2, 4.5), new Line('Cake "Sunday"', 1, 12, 'Happy birthday!')],
);

return [
    'order' => $order,
    'date' => $order->placed->format('j F Y'),
    'total' => $order->total(),
    'hints' => (function () use ($order): Generator {
        yield 'Keep this message.';
        if ($order->total() > 20) {
            yield 'Next time you have free shipping.';
        }
    })(),
];
