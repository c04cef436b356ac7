<?php

declare(strict_types=1);

namespace Zorvel\Tools\Command;

use JsonException;
use Zorvel\Tools\UsageError;

/** The data for a page, a JSON object in a file; "-" is standard input. */
final readonly class JsonData
{
    /** What the view takes. */
    private const int DEPTH = 128;

    private const string BYTE_ORDER_MARK = "\u{FEFF}";

    /**
     * @return array<array-key, mixed>
     * @throws UsageError
     */
    public static function read(string $file): array
    {
        $json = @file_get_contents($file === '-' ? 'php://stdin' : $file);
        if ($json === false) {
            throw new UsageError("cannot read $file");
        }
        try {
            $data = json_decode(ltrim($json, self::BYTE_ORDER_MARK), true, self::DEPTH, JSON_THROW_ON_ERROR);
        } catch (JsonException $error) {
            throw new UsageError("$file is not valid JSON: {$error->getMessage()}");
        }

        return is_array($data) ? $data : throw new UsageError("$file holds no JSON object");
    }
}
