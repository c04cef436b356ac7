<?php

declare(strict_types=1);

enum Shipping: string
{
    case Post = 'post';
    case Pickup = 'pickup';
}

final class Line
{
    public float $sum { get => $this->amount * $this->price; }

    public function __construct(
        public readonly string $title,
        public readonly int $amount,
        public readonly float $price,
        public readonly ?string $gift = null,
    ) {}
}

final readonly class Customer
{
    public function __construct(public string $name, public string $email, public ?string $company, private string $password) {}
}

final readonly class Order
{
    /** @param list<Line> $lines */
    public function __construct(
        public int $number,
        public DateTimeImmutable $placed,
        public Customer $customer,
        public Shipping $shipping,
        public array $lines,
    ) {}

    public function total(): float
    {
        return array_sum(array_map(fn(Line $line): float => $line->sum, $this->lines));
    }
}
